#include "region.h"

namespace tuner {

QString freqGroup(bool fm, int band)
{
    return QStringLiteral("Freq/%1%2").arg(fm ? QStringLiteral("FM") : QStringLiteral("AM")).arg(band);
}

namespace {

// Bands 1 and 2 start on the FM low edge and keep all presets there; band 4
// likewise on the AM low edge. Only band 0 and band 3 carry real presets.
constexpr tagTunerRegionVariant_T variant(qint32 fmLow, qint32 fmHigh, qint32 fmStep, qint32 amLow, qint32 amHigh,
                                          qint32 amStep, const qint32 (&fm0)[kPresetCount],
                                          const qint32 (&am3)[kPresetCount], qint32 am4 = 0)
{
    const qint32 amLowBands = am4 ? am4 : amLow;
    return tagTunerRegionVariant_T{fmLow,
                                   fmHigh,
                                   fmStep,
                                   amLow,
                                   amHigh,
                                   amStep,
                                   {{fm0[0], fm0[1], fm0[2], fm0[3], fm0[4], fm0[5]},
                                    {fmLow, fmLow, fmLow, fmLow, fmLow, fmLow},
                                    {fmLow, fmLow, fmLow, fmLow, fmLow, fmLow},
                                    {am3[0], am3[1], am3[2], am3[3], am3[4], am3[5]},
                                    {amLowBands, amLowBands, amLowBands, amLowBands, amLowBands, amLowBands}},
                                   {fmLow, fmLow, fmLow, amLowBands, amLowBands}};
}

constexpr qint32 kEurFm[kPresetCount] = {8750, 9750, 9800, 9850, 10750, 10800};
constexpr qint32 kEurAm[kPresetCount] = {531, 909, 999, 1089, 1512, 1602};
constexpr qint32 kUcFm[kPresetCount] = {8750, 9590, 9790, 9990, 10590, 10790};
constexpr qint32 kUcAm[kPresetCount] = {530, 900, 1000, 1100, 1610, 1710};
constexpr qint32 kJpnFm[kPresetCount] = {7800, 7950, 8000, 8130, 8470, 8970};
constexpr qint32 kJpnAm[kPresetCount] = {594, 810, 954, 1134, 1242, 1422};

constexpr tagTunerRegionVariant_T kEur = variant(8750, 10800, 5, 531, 1602, 9, kEurFm, kEurAm);
constexpr tagTunerRegionVariant_T kUc = variant(8750, 10790, 20, 530, 1710, 10, kUcFm, kUcAm);
constexpr tagTunerRegionVariant_T kZero = {};

} // namespace

const tagTunerRegion_T tunerRegionTable[kRegionCount] = {
    {0, "EUR", {kEur, kZero}},
    {1, "UC", {kUc, kZero}},
    {18, "E17", {kEur, kZero}},
    {3,
     "E",
     {variant(8750, 10800, 10, 530, 1710, 10, kEurFm, kUcAm), variant(8750, 10790, 20, 530, 1710, 10, kUcFm, kUcAm)}},
    {4, "RU2", {kEur, kZero}},
    {21, "IN", {kEur, kZero}},
    {26, "EA", {kEur, kZero}},
    {28, "ET4", {kEur, kZero}},
    // The FM high edge of 900 and AM low edge of 822 are the table's own values;
    // the AM bands start on 522 and band 4 keeps its presets there.
    {7, "JPN", {variant(7600, 900, 10, 822, 1629, 9, kJpnFm, kJpnAm, 522), kZero}},
};

const tagTunerRegion_T *findRegionById(unsigned int id)
{
    for (const tagTunerRegion_T &region : tunerRegionTable) {
        if (region.id == id)
            return &region;
    }
    return nullptr;
}

const tagTunerRegion_T *findRegionByName(const QString &name, Qt::CaseSensitivity cs)
{
    for (const tagTunerRegion_T &region : tunerRegionTable) {
        if (name.compare(QLatin1String(region.name), cs) == 0)
            return &region;
    }
    return nullptr;
}

} // namespace tuner
