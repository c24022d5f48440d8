#pragma once

namespace tuner {

// What each head-unit key code does on the tuner. Both key entry points, the
// window's source keys and the screen's remote keys, read this one table;
// where they differ is in what a role does in each phase.
enum class KeyRole {
    None,
    PresetNext,      // 7, 51, 117, 161: next preset; held: seek up
    PresetPrevious,  // 8, 52, 118, 162: previous preset; held: seek down
    Band,            // 33, 122
    PresetNumber,    // 34..39: recall presets 1..6; held: store
    PresetUp,        // 44, 121: preset up, repeated while held
    PresetDown,      // 45, 116
    SeekDown,        // 46: seek down; held: manual steps down
    SeekUp,          // 47
    StopSearch,      // 125
    CancelInterrupt, // 66, 114, 163, 176
    AfOff,           // 177
    AfOn,            // 178
    TaOff,           // 179
    TaOn,            // 180
    LocalOff,        // 181
    LocalOn,         // 182
    AmOrFm3,         // 184
    Fm1OrAm2,        // 185
};

KeyRole keyRole(int code);
// 0..5 for the number keys 34..39.
int presetOfKey(int code);

// The radio service's work status.
enum class WorkStatus {
    Idle = 0,
    AutoStore = 1,
    SeekUp = 2,
    SeekDown = 3,
    PtySearchUp = 4,
    PtySearchDown = 5,
};

inline bool isSeek(WorkStatus status)
{
    return status == WorkStatus::SeekUp || status == WorkStatus::SeekDown;
}

inline bool isPtySearch(WorkStatus status)
{
    return status == WorkStatus::PtySearchUp || status == WorkStatus::PtySearchDown;
}

// What a key does first to a search the service runs: nothing more (Run),
// stop it (Stop), or stop it and tune the playing frequency again.
enum class SearchGate { Run, Stop, StopAndRetune };

// Automatic store and PTY search are stopped, a seek stopped and retuned.
// `ptyFlagged`: the preferences say a PTY search runs (seek and manual keys
// heed that; preset keys look at the work status only).
inline SearchGate searchGate(WorkStatus status, bool ptyFlagged = false)
{
    if (status == WorkStatus::AutoStore || isPtySearch(status) || ptyFlagged)
        return SearchGate::Stop;
    return isSeek(status) ? SearchGate::StopAndRetune : SearchGate::Run;
}

} // namespace tuner
