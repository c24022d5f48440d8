#pragma once

namespace tuner {

class TunerPlayer;

// The remote and steering-wheel keys while the tuner screen is up: preset
// stepping across bands, recall and store by number, seek and manual steps,
// the band key and stopping a search.
class RemoteKeys
{
public:
    explicit RemoteKeys(TunerPlayer &screen);

    // True when the key was consumed.
    bool keyEvent(int key, int phase);
    void nextPreset();
    // Unlike stepping up, the band change here follows the stored preset id.
    void previousPreset();
    void nextBand();

private:
    bool bandKey(int phase);
    bool presetStepKey(bool up, int phase);
    bool presetNumberKey(int id, int phase);
    bool presetRepeatKey(bool up, int phase);
    bool seekKey(bool up, int phase);
    bool stopKey(int phase);
    void stepToBand(int band);
    void selectPreset(int id);
    void storePreset(int id);

    TunerPlayer &m_screen;
};

} // namespace tuner
