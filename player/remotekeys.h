#pragma once

#include "keyactions.h"

class QWidget;

namespace tuner {

class BandSwitch;
class InterruptBanner;
class ManualKeys;
class PresetLabels;
class PresetPages;
class PresetTouch;
class RadioControl;
class RdsStation;

// The remote and steering-wheel keys while the tuner screen is up: preset
// stepping across bands, recall and store by number, seek and manual steps,
// the band key and stopping a search.
class RemoteKeys
{
public:
    // The keys are served while `screen` is visible.
    RemoteKeys(const QWidget &screen, RadioControl &control, PresetPages &pages, PresetLabels &labels,
               PresetTouch &touch, BandSwitch &bands, ManualKeys &manual, RdsStation &rds,
               const InterruptBanner &banner);

    // True when the key was consumed.
    bool keyEvent(int key, int phase);
    // The preset up and down keys' step, for what steps presets without a key
    // (the media player): no beep. False when the screen does not serve it.
    bool stepPreset(bool up);
    void nextPreset();
    // Unlike stepping up, the band change here follows the stored preset id.
    void previousPreset();
    // A seek from the keys: false when it only stopped a search.
    bool startSeek(bool up);

private:
    // The screen (or the option list over it) is up, with no interrupt popup.
    bool servesTunerKeys() const;
    void perform(KeyAction action, int key);
    // The band key: stops a PTY search, or steps to the next band, stopping
    // an automatic store or a seek first.
    void nextBand();
    void stepToBand(int band);
    void selectPreset(int id);

    const QWidget &m_screen;
    RadioControl &m_control;
    PresetPages &m_pages;
    PresetLabels &m_labels;
    PresetTouch &m_touch;
    BandSwitch &m_bands;
    ManualKeys &m_manual;
    RdsStation &m_rds;
    const InterruptBanner &m_banner;
};

} // namespace tuner
