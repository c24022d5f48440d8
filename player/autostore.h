#pragma once

namespace tuner {

class PresetLabels;
class PresetPages;
class RadioControl;
class RdsStation;

// The automatic store as the tuner screen runs it: started (or, while the
// service searches, only stopped), and the preset lit when it is done.
class AutoStore
{
public:
    AutoStore(RadioControl &control, PresetPages &pages, PresetLabels &labels, RdsStation &rds);

    void start();
    // The service stored its stations: the labels show them, and the preset
    // chosen for after the store is lit where it plays.
    void completed();
    // Lights the chosen preset whatever plays.
    void lightChosenPreset();

private:
    RadioControl &m_control;
    PresetPages &m_pages;
    PresetLabels &m_labels;
    RdsStation &m_rds;
};

} // namespace tuner
