#pragma once

#include "tunerkeys.h"

namespace tuner {

// Who serves a key, in the order they are asked: the window's keys that act
// whatever is shown, the tuner screen while it is up, and the window for what
// the screens left.
enum class KeyContext { Always = 1, Screen = 2, Window = 4, ScreenAndWindow = Screen | Window };

// What must hold, besides the context's own gates, for a row to apply: the
// work status the context goes by.
enum class KeyGate { Always, NotStoring, Storing, StoreOrSeek };

// What a served key does; the context carries it out, in the direction or on
// the preset that the key's role and code give.
enum class KeyAction {
    Nothing,
    CancelInterrupt,
    SwitchAf,    // AfOff/AfOn
    SwitchTa,    // TaOff/TaOn
    SwitchLocal, // LocalOff/LocalOn
    AmOrFm3,
    Fm1OrAm2,
    StepPreset,  // next or previous preset
    PresetSeek,  // the preset step keys held
    Seek,        // the seek keys
    ManualStart, // the seek keys held: manual steps
    ManualStop,
    Recall, // a number key's preset
    Store,
    NextBand,
    StopSearch,
};

struct KeyRule
{
    int contexts; // KeyContext bits
    KeyRole role;
    int phase; // 0: any phase
    KeyGate gate;
    int beep; // the MCU's beep (0 short, 1 long) first, or -1
    KeyAction action;
    bool consumed;
};

// The one table from key role, phase and context to an action: null when the
// context does not serve the key, which then goes on to the next one.
const KeyRule *keyRule(KeyContext context, KeyRole role, int phase, WorkStatus status);

// The next preset, seek up, preset up: the upward half of a pair.
bool isUpward(KeyRole role);
// AF, TA or Local on: the switching-on half of a pair.
bool turnsOn(KeyRole role);

} // namespace tuner
