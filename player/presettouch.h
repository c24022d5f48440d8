#pragma once

#include <QBasicTimer>
#include <QObject>

namespace tuner {

class DisplayLine;
class PresetLabels;
class PresetPages;
class RadioControl;
class RdsStation;
class TunedFrequency;

// Touches on the preset keys: a tap recalls the preset, a hold of 1.5 s
// stores the playing station in it, and a swipe across the pages does neither.
// The number keys of a remote recall and store through here as well.
class PresetTouch : public QObject
{
public:
    PresetTouch(RadioControl &control, PresetPages &pages, PresetLabels &labels, const TunedFrequency &frequency,
                DisplayLine &line, RdsStation &rds);

    void pressed(int id);
    void released();
    void swiped();
    // `fromKey`: a number key, which never follows a hold.
    void clicked(int id, bool fromKey);
    // A number key held: the hold's store, without stopping a search and
    // without touching the preset index or the stored name first.
    void storeFromKey(int id);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    enum class StoredBy { Hold, Key };
    void store(int id, StoredBy by);

    RadioControl &m_control;
    PresetPages &m_pages;
    PresetLabels &m_labels;
    const TunedFrequency &m_frequency;
    DisplayLine &m_line;
    RdsStation &m_rds;
    QBasicTimer m_hold;
    int m_pressed = 0;
    int m_lastClicked = 6;
    bool m_stored = false;
};

} // namespace tuner
