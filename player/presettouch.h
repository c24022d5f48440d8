#pragma once

#include <QBasicTimer>
#include <QObject>

namespace tuner {

class TunerPlayer;

// Touches on the preset keys: a tap recalls the preset, a hold of 1.5 s
// stores the playing station in it, and a swipe across the pages does neither.
class PresetTouch : public QObject
{
public:
    explicit PresetTouch(TunerPlayer &screen);

    void pressed(int id);
    void released();
    void swiped();
    // `fromKey`: a number key, which never follows a hold.
    void clicked(int id, bool fromKey);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void store(int id);
    void showRecalled(int id);

    TunerPlayer &m_screen;
    QBasicTimer m_hold;
    int m_pressed = 0;
    int m_lastClicked = 6;
    bool m_stored = false;
};

} // namespace tuner
