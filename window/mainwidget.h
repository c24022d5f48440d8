#pragma once

#include <QWidget>

class KeyEvent;
class NiloRadioServiceInterface;
class QLabel;

namespace tuner {

// The stack of screens that the main window hands to the host. Until the
// tuner screens exist it shows the state as a plain status board: band,
// frequency, station name, work status and interrupt.
class MainWidget : public QWidget
{
    Q_OBJECT
public:
    explicit MainWidget(QWidget *parent = nullptr);

    void resume();
    bool windowKeyEvent(KeyEvent *event);
    void terminate();
    void autoScanCompleted(const QString &freqList);
    void updateFreq();
    void PTYsearchStatus(int status);
    void statusChanged(int state);
    void RDSName(QString name);
    void piTpStatus(int state);
    void InterruptCancel();
    void BandChanged();
    void scrollToPage(int band);
    void updatePresetChecked();

signals:
    void alarmCancel();
    void cancelTaAlarm();

protected:
    bool event(QEvent *event) override;

private slots:
    void onStationChanged(int freq, int band);
    void onWorkStatus(int state);

private:
    QLabel *addLabel(const char *objectName, int x, int y, int w, int h, int pixelSize);
    void refresh();

    NiloRadioServiceInterface *m_radio;
    QLabel *m_band;
    QLabel *m_freq;
    QLabel *m_unit;
    QLabel *m_name;
    QLabel *m_status;
    QLabel *m_interrupt;
};

} // namespace tuner
