#pragma once

#include <QString>
#include <QtGlobal>

namespace tuner {

constexpr int kBandCount = 5;
constexpr int kFmBandCount = 3;
constexpr int kAmBandCount = 2;
constexpr int kPresetCount = 6;

// Presets are numbered 0..5 on every band.
constexpr bool validPreset(int id)
{
    return id >= 0 && id < kPresetCount;
}

constexpr bool isFmBandNumber(int band)
{
    return band >= 0 && band < kFmBandCount;
}

// The radio.conf group of a band: "Freq/FM0" .. "Freq/AM4". The prefix names
// a family and is given apart from the number.
QString freqGroup(bool fm, int band);

// One tuning variant of a region (chosen by the tuner step).
struct tagTunerRegionVariant_T
{
    qint32 fmLow;
    qint32 fmHigh;
    qint32 fmStep;
    qint32 amLow;
    qint32 amHigh;
    qint32 amStep;
    qint32 presets[kBandCount][kPresetCount];
    qint32 currFreq[kBandCount];
};

struct tagTunerRegion_T
{
    quint32 id; // destination code of cm::SettingsUtil::getDestination()
    char name[20];
    tagTunerRegionVariant_T variant[2];
};

constexpr int kRegionCount = 9;
extern const tagTunerRegion_T tunerRegionTable[kRegionCount];

const tagTunerRegion_T *findRegionById(unsigned int id);
const tagTunerRegion_T *findRegionByName(const QString &name, Qt::CaseSensitivity cs);

} // namespace tuner
