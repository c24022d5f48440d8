#include "manualkeys.h"

#include "nilo_radioservice_interface.h"
#include "tunerkeys.h"
#include "tunerlog.h"
#include "tunerplayer.h"
#include "ui_c20_003_tuner.h"

#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kRepeatMs = 300;
// A manual step the service never confirms must not leave its key dead.
constexpr int kUnlockMs = 3000;

} // namespace

ManualKeys::ManualKeys(TunerPlayer &screen)
    : m_screen(screen)
{
}

QWidget *ManualKeys::key(bool plus) const
{
    Ui::c20_003_tuner *ui = m_screen.ui;
    return plus ? static_cast<QWidget *>(ui->Key_0028_manual_plus) : ui->Key_0027_manual_minus;
}

void ManualKeys::clicked(bool plus)
{
    const auto status = m_screen.status();
    if (status == WorkStatus::AutoStore)
        return;
    m_screen.beep(0);
    m_screen.clearRdsState();
    if (isSeek(status)) {
        m_screen.stopAndRetune();
        return;
    }
    m_stepping = true;
    plus ? m_screen.manualPlus() : m_screen.manualMinus();
    m_screen.m_radio->tune(m_screen.freqValue());
    m_screen.m_tuneRequested = true;
    // Until the service confirms the frequency, or the fallback gives up on it.
    key(plus)->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_unlock.start(kUnlockMs, this);
}

void ManualKeys::pressed(bool plus)
{
    const auto status = m_screen.status();
    if (status == WorkStatus::AutoStore)
        return;
    m_screen.beep(1);
    m_screen.clearRdsState();
    if (isSeek(status))
        m_screen.m_radio->terminate();
    m_screen.m_radio->keyLongPress(1);
    if (!repeat(plus).isActive())
        repeat(plus).start(kRepeatMs, this);
}

// During the repeat the display runs ahead; only the final value is tuned.
void ManualKeys::released(bool plus)
{
    if (repeat(plus).isActive()) {
        repeat(plus).stop();
        m_screen.m_radio->keyLongPress(0);
    }
    m_screen.m_radio->tune(m_screen.freqValue());
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
            plus ? m_screen.manualPlus() : m_screen.manualMinus();
    } else if (id == m_unlock.timerId()) {
        TUNER_WAR() << "the manual step was not confirmed within" << kUnlockMs << "ms; its key is released.";
        unlock();
    } else {
        QObject::timerEvent(event);
    }
}

} // namespace tuner
