#pragma once

class QString;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

class DisplayLine;
class TunedFrequency;
class PresetPages;
class RadioControl;

// The RDS state of the playing station: its name and the RDS and TP icons on
// the display line, and the name a lit FM preset keeps in the preferences.
class RdsStation
{
public:
    RdsStation(Ui::c20_003_tuner *form, DisplayLine &line, PresetPages &pages, const TunedFrequency &frequency,
               const RadioControl &control);

    // "NULL" clears the name, and the lit preset's stored one.
    void showName(QString name);
    // 1: RDS; 3, 5, 7: RDS and TP; anything else none, back to the last frequency.
    void showStatus(int state);
    // Before a new station: no name, no icons, no RDS status.
    void clear();

private:
    Ui::c20_003_tuner *ui;
    DisplayLine &m_line;
    PresetPages &m_pages;
    const TunedFrequency &m_frequency;
    const RadioControl &m_control;
};

} // namespace tuner
