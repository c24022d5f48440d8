#include "keyactions.h"

#include "hostevents.h"

namespace tuner {

namespace {

constexpr int kAlways = int(KeyContext::Always);
constexpr int kScreen = int(KeyContext::Screen);
constexpr int kWindow = int(KeyContext::Window);
constexpr int kBoth = int(KeyContext::ScreenAndWindow);
constexpr int kAnyPhase = 0;
constexpr int kDown = Qx::KeyPressed;
constexpr int kShort = Qx::KeyShortReleased;
constexpr int kLong = Qx::KeyLongPressed;
constexpr int kLongUp = Qx::KeyLongReleased;
constexpr int kNoBeep = -1;

using A = KeyAction;
using G = KeyGate;
using R = KeyRole;

// Unlike the screen, the window beeps a press of the step, seek and band
// keys without taking it.
// clang-format off
constexpr KeyRule kRules[] = {
    {kAlways, R::CancelInterrupt, kShort,    G::Always,      kNoBeep, A::CancelInterrupt, true},
    {kAlways, R::AfOff,           kAnyPhase, G::Always,      kNoBeep, A::SwitchAf,        false},
    {kAlways, R::AfOn,            kAnyPhase, G::Always,      kNoBeep, A::SwitchAf,        false},
    {kAlways, R::TaOff,           kAnyPhase, G::Always,      kNoBeep, A::SwitchTa,        false},
    {kAlways, R::TaOn,            kAnyPhase, G::Always,      kNoBeep, A::SwitchTa,        false},
    {kAlways, R::LocalOff,        kAnyPhase, G::Always,      kNoBeep, A::SwitchLocal,     false},
    {kAlways, R::LocalOn,         kAnyPhase, G::Always,      kNoBeep, A::SwitchLocal,     false},
    {kAlways, R::AmOrFm3,         kAnyPhase, G::Always,      kNoBeep, A::AmOrFm3,         false},
    {kAlways, R::Fm1OrAm2,        kAnyPhase, G::Always,      kNoBeep, A::Fm1OrAm2,        false},

    {kScreen, R::Band,            kDown,     G::Always,      0,       A::Nothing,         true},
    {kWindow, R::Band,            kDown,     G::Always,      0,       A::Nothing,         false},
    {kBoth,   R::Band,            kShort,    G::Always,      kNoBeep, A::NextBand,        true},

    {kScreen, R::PresetNext,      kDown,     G::NotStoring,  0,       A::Nothing,         true},
    {kWindow, R::PresetNext,      kDown,     G::NotStoring,  0,       A::Nothing,         false},
    {kBoth,   R::PresetNext,      kShort,    G::NotStoring,  kNoBeep, A::StepPreset,      true},
    {kBoth,   R::PresetNext,      kLong,     G::NotStoring,  1,       A::PresetSeek,      true},
    {kScreen, R::PresetPrevious,  kDown,     G::NotStoring,  0,       A::Nothing,         true},
    {kWindow, R::PresetPrevious,  kDown,     G::NotStoring,  0,       A::Nothing,         false},
    {kBoth,   R::PresetPrevious,  kShort,    G::NotStoring,  kNoBeep, A::StepPreset,      true},
    {kBoth,   R::PresetPrevious,  kLong,     G::NotStoring,  1,       A::PresetSeek,      true},

    {kScreen, R::PresetNumber,    kDown,     G::Always,      kNoBeep, A::Nothing,         true},
    {kScreen, R::PresetNumber,    kShort,    G::Always,      kNoBeep, A::Recall,          true},
    {kScreen, R::PresetNumber,    kLong,     G::NotStoring,  kNoBeep, A::Store,           true},
    {kWindow, R::PresetNumber,    kDown,     G::Storing,     0,       A::Recall,          true},
    {kWindow, R::PresetNumber,    kDown,     G::NotStoring,  0,       A::Nothing,         true},
    {kWindow, R::PresetNumber,    kShort,    G::NotStoring,  kNoBeep, A::Recall,          true},
    {kWindow, R::PresetNumber,    kShort,    G::Storing,     kNoBeep, A::Nothing,         true},
    {kWindow, R::PresetNumber,    kLong,     G::NotStoring,  1,       A::Store,           true},
    {kWindow, R::PresetNumber,    kLong,     G::Storing,     kNoBeep, A::Nothing,         true},

    {kBoth,   R::PresetUp,        kDown,     G::NotStoring,  0,       A::StepPreset,      true},
    {kBoth,   R::PresetUp,        kLong,     G::NotStoring,  kNoBeep, A::StepPreset,      true},
    {kBoth,   R::PresetUp,        kShort,    G::NotStoring,  kNoBeep, A::Nothing,         true},
    {kBoth,   R::PresetUp,        kLongUp,   G::NotStoring,  kNoBeep, A::Nothing,         true},
    {kBoth,   R::PresetDown,      kDown,     G::NotStoring,  0,       A::StepPreset,      true},
    {kBoth,   R::PresetDown,      kLong,     G::NotStoring,  kNoBeep, A::StepPreset,      true},
    {kBoth,   R::PresetDown,      kShort,    G::NotStoring,  kNoBeep, A::Nothing,         true},
    {kBoth,   R::PresetDown,      kLongUp,   G::NotStoring,  kNoBeep, A::Nothing,         true},

    {kScreen, R::SeekUp,          kDown,     G::NotStoring,  0,       A::Nothing,         true},
    {kWindow, R::SeekUp,          kDown,     G::NotStoring,  0,       A::Nothing,         false},
    {kBoth,   R::SeekUp,          kShort,    G::NotStoring,  kNoBeep, A::Seek,            true},
    {kScreen, R::SeekUp,          kLong,     G::NotStoring,  kNoBeep, A::ManualStart,     true},
    {kWindow, R::SeekUp,          kLong,     G::NotStoring,  1,       A::ManualStart,     true},
    {kBoth,   R::SeekUp,          kLongUp,   G::NotStoring,  kNoBeep, A::ManualStop,      true},
    {kScreen, R::SeekDown,        kDown,     G::NotStoring,  0,       A::Nothing,         true},
    {kWindow, R::SeekDown,        kDown,     G::NotStoring,  0,       A::Nothing,         false},
    {kBoth,   R::SeekDown,        kShort,    G::NotStoring,  kNoBeep, A::Seek,            true},
    {kScreen, R::SeekDown,        kLong,     G::NotStoring,  kNoBeep, A::ManualStart,     true},
    {kWindow, R::SeekDown,        kLong,     G::NotStoring,  1,       A::ManualStart,     true},
    {kBoth,   R::SeekDown,        kLongUp,   G::NotStoring,  kNoBeep, A::ManualStop,      true},

    {kBoth,   R::StopSearch,      kDown,     G::StoreOrSeek, 0,       A::Nothing,         true},
    {kBoth,   R::StopSearch,      kShort,    G::StoreOrSeek, kNoBeep, A::StopSearch,      true},
};
// clang-format on

bool gateHolds(KeyGate gate, WorkStatus status)
{
    const bool storing = status == WorkStatus::AutoStore;
    switch (gate) {
    case KeyGate::NotStoring:
        return !storing;
    case KeyGate::Storing:
        return storing;
    case KeyGate::StoreOrSeek:
        return storing || isSeek(status);
    default:
        return true;
    }
}

} // namespace

const KeyRule *keyRule(KeyContext context, KeyRole role, int phase, WorkStatus status)
{
    for (const KeyRule &rule : kRules) {
        if ((rule.contexts & int(context)) && rule.role == role && (rule.phase == kAnyPhase || rule.phase == phase)
            && gateHolds(rule.gate, status))
            return &rule;
    }
    return nullptr;
}

bool isUpward(KeyRole role)
{
    return role == KeyRole::PresetNext || role == KeyRole::PresetUp || role == KeyRole::SeekUp;
}

bool turnsOn(KeyRole role)
{
    return role == KeyRole::AfOn || role == KeyRole::TaOn || role == KeyRole::LocalOn;
}

} // namespace tuner
