#pragma once

#include <QObject>

namespace sim {

class SimRadio;
class SimSource;

// Behind nilo.Simulator: what a test or a demo scripts from outside.
class SimControl : public QObject
{
    Q_OBJECT
public:
    SimControl(SimRadio *radio, SimSource *source, QObject *parent = nullptr);

    void startTrafficAnnouncement();
    void endTrafficAnnouncement();
    void startAlarm();
    void endAlarm();
    void windowAndSourceChanged(int windowId, int sourceId);
    void setCurrentWindow(int windowId);
    void setStationName(int freq, const QString &name);
    void setStationTp(int freq, bool tp);
    void setStationPty(int freq, int pty);
    void setTimeScale(int percent);
    QString state();

private:
    SimRadio *m_radio;
    SimSource *m_source;
};

} // namespace sim
