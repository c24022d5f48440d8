#include "bandswitch.h"

#include "displayline.h"
#include "interruptbanner.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetlabels.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "rdsswitches.h"
#include "translator.h"
#include "tunedfrequency.h"
#include "tunerlog.h"

#include <QLabel>
#include <QScopedValueRollback>
#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kKeyLockMs = 3000;

// The AM scroller's page of the last AM band. A hardware preset step stores
// that band counted from AM1 (0 or 1); the page is then below the first, and
// the scroller holds it at its first page.
int amPage()
{
    return prefs()->band_AM() - BAND_AM1;
}

} // namespace

BandSwitch::BandSwitch(const QWidget &screen, RadioControl &control, PresetPages &pages, PresetLabels &labels,
                       TunedFrequency &frequency, RdsStation &rds, DisplayLine &line, const InterruptBanner &banner,
                       QWidget *bandKey, QLabel *bandName)
    : m_screen(screen)
    , m_control(control)
    , m_pages(pages)
    , m_labels(labels)
    , m_frequency(frequency)
    , m_rds(rds)
    , m_line(line)
    , m_banner(banner)
    , m_bandKey(bandKey)
    , m_bandName(bandName)
{}

void BandSwitch::showBandName(bool fm)
{
    m_bandName->setText(Translator::translate(fm ? 39 : 49));
}

void BandSwitch::showFamily(bool fm)
{
    showBandName(fm);
    m_pages.showFamily(fm);
}

void BandSwitch::retranslate()
{
    showBandName(prefs()->isFM());
}

void BandSwitch::showStoredBand()
{
    const QScopedValueRollback<bool> storedBand(m_showingStored, true);
    Preferences *p = prefs();
    showFamily(p->isFM());
    if (p->isFM()) {
        enterFmPage(p->band_FM());
        m_pages.scrollToPage(true, p->band_FM(), false);
    } else {
        enterAmPage(p->band_AM());
        m_pages.scrollToPage(false, amPage(), false);
    }
    m_bandShown = true;
}

void BandSwitch::switchFamily()
{
    if (!m_screen.isVisible() && !m_fromRemote)
        return;
    if (m_banner.isUp())
        return;
    if (!m_fromRemote)
        m_control.beep(0);
    if (m_control.stopAnySearch())
        return; // the key only ends the search

    Preferences *p = prefs();
    const bool toFm = !p->isFM();
    m_familySwitched = true;
    showFamily(toFm);
    if (toFm) {
        m_rds.showStatus(p->rdsState());
        if (afTaTpSupported()) {
            m_control.radio()->setAf(p->af());
            m_control.radio()->setTa(p->ta());
        }
        m_pages.scrollToPage(true, m_fromRemote ? 0 : p->band_FM(), true);
    } else {
        m_rds.clear();
        if (afTaTpSupported()) {
            m_control.radio()->setAf(false);
            m_control.radio()->setTa(false);
        }
        m_pages.scrollToPage(false, m_fromRemote ? 0 : amPage(), true);
    }
    m_line.showUnit(toFm);

    m_labels.relabel();
    m_pages.light(p->band(), p->playFreqId());
    m_control.setLastFrequency(p->playFreq());
    m_control.seekEnded();
    emit familySwitched();
    m_fromRemote = false;

    // Not again until the service reports the switch done, or three seconds pass.
    m_bandKey->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_keyLock.start(kKeyLockMs, this);
}

void BandSwitch::nextBand()
{
    Preferences *p = prefs();
    m_fromRemote = true;
    const int next = p->band() + 1;
    if (next > BAND_AM2) {
        p->setBand(BAND_AM2);
        p->setBand_AM(BAND_AM2);
        switchFamily();
    } else if (next == BAND_AM1) {
        switchFamily();
    } else if (p->isFM()) {
        p->setBand(Band(next));
        m_pages.scrollToBand(next, true);
    } else {
        m_pages.scrollToBand(next, true);
        p->setBand(Band(next));
    }
}

void BandSwitch::switchDone(int state)
{
    if (state == 1)
        unlockKey();
}

void BandSwitch::unlockKey()
{
    m_keyLock.stop();
    m_bandKey->setAttribute(Qt::WA_TransparentForMouseEvents, false);
}

void BandSwitch::enterFmPage(int page)
{
    if (!Preferences::isFmBand(page)) {
        TUNER_WAR() << page << "is not an FM page.";
        return;
    }
    if (m_bandShown && m_control.workStatus() == WorkStatus::Idle && !m_control.seeking())
        m_rds.clear();
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
    // The band restored from the store is not commanded until the service's
    // own band is known: a slow service would be switched away and back.
    if (!m_showingStored || m_control.radioStateKnown())
        m_control.radio()->setband(band);
    Preferences::isFmBand(band) ? p->setBand_FM(Band(band)) : p->setBand_AM(Band(band));
    p->setBand(Band(band));
    m_pages.showPageImage(band);
    m_pages.light(band, p->playFreqId());
    m_frequency.followBand();
    if (m_familySwitched) {
        m_frequency.setValue(p->playFreq());
        m_familySwitched = false;
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
