#include "tunerkeys.h"

namespace tuner {

namespace {

struct KeyCode
{
    int code;
    KeyRole role;
};

constexpr KeyCode kKeys[] = {
    {7, KeyRole::PresetNext},
    {51, KeyRole::PresetNext},
    {117, KeyRole::PresetNext},
    {161, KeyRole::PresetNext},
    {8, KeyRole::PresetPrevious},
    {52, KeyRole::PresetPrevious},
    {118, KeyRole::PresetPrevious},
    {162, KeyRole::PresetPrevious},
    {33, KeyRole::Band},
    {122, KeyRole::Band},
    {34, KeyRole::PresetNumber},
    {35, KeyRole::PresetNumber},
    {36, KeyRole::PresetNumber},
    {37, KeyRole::PresetNumber},
    {38, KeyRole::PresetNumber},
    {39, KeyRole::PresetNumber},
    {44, KeyRole::PresetUp},
    {121, KeyRole::PresetUp},
    {45, KeyRole::PresetDown},
    {116, KeyRole::PresetDown},
    {46, KeyRole::SeekDown},
    {47, KeyRole::SeekUp},
    {125, KeyRole::StopSearch},
    {66, KeyRole::CancelInterrupt},
    {114, KeyRole::CancelInterrupt},
    {163, KeyRole::CancelInterrupt},
    {176, KeyRole::CancelInterrupt},
    {177, KeyRole::AfOff},
    {178, KeyRole::AfOn},
    {179, KeyRole::TaOff},
    {180, KeyRole::TaOn},
    {181, KeyRole::LocalOff},
    {182, KeyRole::LocalOn},
    {184, KeyRole::AmOrFm3},
    {185, KeyRole::Fm1OrAm2},
};

constexpr int kFirstNumberKey = 34;

} // namespace

KeyRole keyRole(int code)
{
    for (const KeyCode &key : kKeys) {
        if (key.code == code)
            return key.role;
    }
    return KeyRole::None;
}

int presetOfKey(int code)
{
    return code - kFirstNumberKey;
}

} // namespace tuner
