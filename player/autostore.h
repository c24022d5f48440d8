#pragma once

namespace tuner {

class PresetPages;
class RadioControl;
class RdsStation;
class TunerPlayer;

// The automatic store as the tuner screen runs it: started (or, while the
// service searches, only stopped), and the preset lit when it is done.
class AutoStore
{
public:
    AutoStore(TunerPlayer &screen, RadioControl &control, PresetPages &pages, RdsStation &rds);

    void start();
    // The service stored its stations: the labels show them, and the preset
    // chosen for after the store is lit where it plays.
    void completed();
    // Lights the chosen preset whatever plays.
    void lightChosenPreset();

private:
    TunerPlayer &m_screen;
    RadioControl &m_control;
    PresetPages &m_pages;
    RdsStation &m_rds;
};

} // namespace tuner
