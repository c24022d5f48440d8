#include "bandswitch.h"

#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "settingsutil.h"
#include "tunerkeys.h"
#include "tunerlog.h"
#include "tunerplayer.h"
#include "ui_c20_003_tuner.h"

#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kKeyLockMs = 3000;

Preferences *prefs()
{
    return Preferences::getInstance();
}

} // namespace

BandSwitch::BandSwitch(TunerPlayer &screen)
    : m_screen(screen)
{
}

void BandSwitch::showStoredBand()
{
    Preferences *p = prefs();
    m_screen.showBandFamily(p->isFM());
    if (p->isFM()) {
        enterFmPage(p->band_FM());
        m_screen.m_pages.scrollToBand(p->band_FM(), false);
    } else {
        enterAmPage(p->band_AM());
        m_screen.m_pages.scrollToBand(p->band_AM(), false);
    }
}

void BandSwitch::switchFamily()
{
    TunerPlayer &s = m_screen;
    if (!s.isVisible() && !s.m_bandKeyFromRemote)
        return;
    if (s.interruptState() == 3 || s.interruptState() == 5)
        return;
    if (!s.m_bandKeyFromRemote)
        s.beep(0);
    if (s.onTerminate())
        return; // the key only ends the search

    Preferences *p = prefs();
    const bool afTaTp = cm::SettingsUtil::instance()->getRdsAfTaTpSupport() == 1;
    const bool toFm = !p->isFM();
    s.m_bandSwitched = true;
    s.showBandFamily(toFm);
    if (toFm) {
        s.onstatusChanged(p->rdsState());
        if (afTaTp) {
            s.m_radio->setAf(p->af());
            s.m_radio->setTa(p->ta());
        }
        s.m_pages.scrollToBand(s.m_bandKeyFromRemote ? BAND_FM1 : p->band_FM(), true);
    } else {
        s.clearRdsState();
        if (afTaTp) {
            s.m_radio->setAf(false);
            s.m_radio->setTa(false);
        }
        s.m_pages.scrollToBand(s.m_bandKeyFromRemote ? BAND_AM1 : p->band_AM(), true);
    }
    s.showUnit(toFm);

    s.updateLabelFreq();
    s.m_pages.light(p->band(), p->playFreqId());
    s.m_lastFreq = p->playFreq();
    s.m_seeking = false;
    s.onWorkStatus(0);
    emit s.showOptionItem();
    s.m_bandKeyFromRemote = false;

    // Not again until the service reports the switch done, or three seconds pass.
    s.ui->Key_0020_switch_band->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_keyLock.start(kKeyLockMs, this);
}

void BandSwitch::switchDone(int state)
{
    if (state == 1)
        unlockKey();
}

void BandSwitch::unlockKey()
{
    m_keyLock.stop();
    m_screen.ui->Key_0020_switch_band->setAttribute(Qt::WA_TransparentForMouseEvents, false);
}

void BandSwitch::enterFmPage(int page)
{
    if (!Preferences::isFmBand(page)) {
        TUNER_WAR() << page << "is not an FM page.";
        return;
    }
    if (m_screen.m_initialised && m_screen.status() == WorkStatus::Idle && !m_screen.m_seeking)
        m_screen.clearRdsState();
    enter(page);
}

void BandSwitch::enterAmPage(int page)
{
    int band = -1;
    if (page == 0 || page == BAND_AM1)
        band = BAND_AM1;
    else if (page == 1 || page == BAND_AM2)
        band = BAND_AM2;
    if (band < 0) {
        TUNER_WAR() << page << "is not an AM page.";
        return;
    }
    enter(band);
}

void BandSwitch::enter(int band)
{
    Preferences *p = prefs();
    m_screen.m_radio->setband(band);
    Preferences::isFmBand(band) ? p->setBand_FM(Band(band)) : p->setBand_AM(Band(band));
    p->setBand(Band(band));
    m_screen.m_pages.showPageImage(band);
    m_screen.m_pages.light(band, p->playFreqId());
    m_screen.setRange(p->lowFreq(), p->highFreq());
    m_screen.setStep(p->stepFreq());
    if (m_screen.m_bandSwitched) {
        m_screen.setValue(p->playFreq());
        m_screen.m_bandSwitched = false;
    }
}

void BandSwitch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_keyLock.timerId())
        unlockKey();
    else
        QObject::timerEvent(event);
}

} // namespace tuner
