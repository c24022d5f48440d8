#pragma once

namespace tuner {

class PresetPages;
class TunedFrequency;

// What the preset pages show of the stored presets: each label's frequency or
// station name, and which preset plays, lit on its page and stored as playing.
class PresetLabels
{
public:
    PresetLabels(PresetPages &pages, TunedFrequency &frequency);

    // The band's range and step, then every label of the family anew.
    void relabel();
    // The family's labels from `values`, band by band, six to a band.
    void showValues(const int *values, int count);
    // On FM, a stored station name replaces its preset's frequency.
    void showNames();
    // Lights preset `id` of the current band, and stores it as playing.
    void light(int id);
    // Turns to the current band's page and lights the playing preset there.
    void lightPlaying();
    // No preset of the current band, or of its whole family, plays.
    void unlightBand();
    void unlightFamily();

private:
    PresetPages &m_pages;
    TunedFrequency &m_frequency;
};

} // namespace tuner
