#pragma once

class QString;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

class DisplayLine;
class FrequencyDial;
class PresetPages;

// The station name and the RDS and TP icons of the display line, and the
// name a lit FM preset takes from its station.
class RdsDisplay
{
public:
    RdsDisplay(Ui::c20_003_tuner *form, DisplayLine &line, PresetPages &pages, const FrequencyDial &dial);

    // "NULL" clears the name, and the lit preset's stored one.
    void showName(QString name);
    // 1: RDS; 3, 5, 7: RDS and TP; anything else none, back to the frequency.
    void showStatus(int state, int lastFreq);

private:
    Ui::c20_003_tuner *ui;
    DisplayLine &m_line;
    PresetPages &m_pages;
    const FrequencyDial &m_dial;
};

} // namespace tuner
