#pragma once

#include <QBasicTimer>
#include <QObject>

namespace tuner {

class TunerPlayer;

// Moving between bands: the band key switches between the FM and AM families,
// and turning a preset page enters that page's band.
class BandSwitch : public QObject
{
public:
    explicit BandSwitch(TunerPlayer &screen);

    // Shows the stored band's family and page, without animation.
    void showStoredBand();
    void switchFamily();
    // The service reports the switch done (1): the band key works again.
    void switchDone(int state);
    void enterFmPage(int page);
    // A page (0, 1) or a band (3, 4).
    void enterAmPage(int page);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void enter(int band);
    void unlockKey();

    TunerPlayer &m_screen;
    QBasicTimer m_keyLock;
};

} // namespace tuner
