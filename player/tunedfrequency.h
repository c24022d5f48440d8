#pragma once

#include "frequencydial.h"

namespace tuner {

class DisplayLine;
class RadioControl;

// The frequency the screen shows: the dial over the current band's range and
// step, and the display line that reads its value. What it shows it also
// remembers as the last frequency, with the radio control.
class TunedFrequency
{
public:
    TunedFrequency(DisplayLine &line, RadioControl &control);

    // The current band's range and step, from the preferences.
    void followBand();
    void setRange(int low, int high) { m_dial.setRange(low, high); }
    void setStep(int step);
    // Shows `value` when it lies inside the range; else nothing changes.
    void setValue(int value);
    // Shows the last frequency again.
    void showLast();

    int value() const { return m_dial.value(); }
    int step() const { return m_dial.step(); }
    int next(bool up) const { return m_dial.next(up); }
    QString text(int value) const { return m_dial.text(value); }

private:
    FrequencyDial m_dial;
    DisplayLine &m_line;
    RadioControl &m_control;
};

} // namespace tuner
