#include "manualkeys.h"

#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "tunedfrequency.h"
#include "tunerlog.h"

#include <QTimerEvent>
#include <QWidget>

namespace tuner {

namespace {

constexpr int kRepeatMs = 300;
// A manual step the service never confirms must not leave its key dead.
constexpr int kUnlockMs = 3000;

} // namespace

ManualKeys::ManualKeys(const QWidget &screen, TunedFrequency &frequency, PresetPages &pages, RadioControl &control,
                       RdsStation &rds, QWidget *plusKey, QWidget *minusKey)
    : m_screen(screen)
    , m_frequency(frequency)
    , m_pages(pages)
    , m_control(control)
    , m_rds(rds)
    , m_plusKey(plusKey)
    , m_minusKey(minusKey)
{}

void ManualKeys::step(bool plus)
{
    Preferences *p = prefs();
    if (validPreset(p->playFreqId())) {
        m_pages.unlight(p->band());
        p->setCurrPlayFreqId(kNoPreset);
        p->setPresetIndex(0);
    }
    m_frequency.setValue(m_frequency.next(plus));
}

void ManualKeys::clicked(bool plus)
{
    const auto status = m_control.workStatus();
    if (status == WorkStatus::AutoStore)
        return;
    m_control.beep(0);
    m_rds.clear();
    if (isSeek(status)) {
        m_control.stopAndRetune();
        return;
    }
    m_stepping = true;
    step(plus);
    m_control.tune(m_frequency.value());
    // Until the service confirms the frequency, or the fallback gives up on it.
    key(plus)->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_unlock.start(kUnlockMs, this);
}

void ManualKeys::pressed(bool plus)
{
    const auto status = m_control.workStatus();
    if (status == WorkStatus::AutoStore)
        return;
    m_control.beep(1);
    m_rds.clear();
    if (isSeek(status))
        m_control.radio()->terminate();
    m_control.radio()->keyLongPress(1);
    if (!repeat(plus).isActive())
        repeat(plus).start(kRepeatMs, this);
}

// During the repeat the display runs ahead; only the final value is tuned.
void ManualKeys::released(bool plus)
{
    if (repeat(plus).isActive()) {
        repeat(plus).stop();
        m_control.radio()->keyLongPress(0);
    }
    // The report of this tune is not awaited: the display already shows it.
    m_control.radio()->tune(m_frequency.value());
}

void ManualKeys::unlock()
{
    m_unlock.stop();
    key(true)->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    key(false)->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    m_stepping = false;
}

void ManualKeys::timerEvent(QTimerEvent *event)
{
    const int id = event->timerId();
    if (id == m_plusRepeat.timerId() || id == m_minusRepeat.timerId()) {
        const bool plus = id == m_plusRepeat.timerId();
        if (!m_screen.isVisible())
            released(plus);
        else
            step(plus);
    } else if (id == m_unlock.timerId()) {
        TUNER_WAR() << "the manual step was not confirmed within" << kUnlockMs << "ms; its key is released.";
        unlock();
    } else {
        QObject::timerEvent(event);
    }
}

} // namespace tuner
