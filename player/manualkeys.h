#pragma once

#include <QBasicTimer>
#include <QObject>

class QWidget;

namespace tuner {

class PresetPages;
class RadioControl;
class RdsStation;
class TunedFrequency;

// The manual step keys: a tap steps once and tunes, locking the key until the
// service confirms the frequency; a hold steps the display every 300 ms and
// tunes the final frequency on release.
class ManualKeys : public QObject
{
public:
    // The keys are locked while they wait; a hold ends when `screen` is hidden.
    ManualKeys(const QWidget &screen, TunedFrequency &frequency, PresetPages &pages, RadioControl &control,
               RdsStation &rds, QWidget *plusKey, QWidget *minusKey);

    void clicked(bool plus);
    void pressed(bool plus);
    void released(bool plus);
    // A held key owns the display.
    bool repeating() const { return m_plusRepeat.isActive() || m_minusRepeat.isActive(); }
    // A tapped key waits for the service's confirmation.
    bool stepping() const { return m_stepping; }
    void unlock();
    // One step of the frequency shown, wrapping at the band's edges; the
    // preset that played goes out.
    void step(bool plus);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QWidget *key(bool plus) const { return plus ? m_plusKey : m_minusKey; }
    QBasicTimer &repeat(bool plus) { return plus ? m_plusRepeat : m_minusRepeat; }

    const QWidget &m_screen;
    TunedFrequency &m_frequency;
    PresetPages &m_pages;
    RadioControl &m_control;
    RdsStation &m_rds;
    QWidget *m_plusKey;
    QWidget *m_minusKey;
    QBasicTimer m_plusRepeat;
    QBasicTimer m_minusRepeat;
    QBasicTimer m_unlock;
    bool m_stepping = false;
};

} // namespace tuner
