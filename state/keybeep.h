#pragma once

class NiloMcuServiceInterface;

namespace tuner {

// The beep that acknowledges a key. A key pressed on the driver's behalf by
// something that is not a key (the media-player interface's Next, say) goes
// through the same key code, silenced for its duration.
class KeyBeep
{
public:
    static void trigger(NiloMcuServiceInterface *mcu, int state);

    // While one lives, no key beeps.
    class Silence
    {
    public:
        Silence() { ++s_silenced; }
        ~Silence() { --s_silenced; }
        Silence(const Silence &) = delete;
        Silence &operator=(const Silence &) = delete;
    };

private:
    static int s_silenced;
};

} // namespace tuner
