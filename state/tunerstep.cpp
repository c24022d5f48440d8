#include "conffile.h"
#include "region.h"
#include "tuneroptions.h"
#include "tunerlog.h"

#include <QCoreApplication>

namespace tuner {

// This file is the service's own configuration, not the one the preferences write.
static QString tunerStepConfPath()
{
    const QString dir = qEnvironmentVariable("NILO_DIR");
    if (!dir.isEmpty())
        return dir + QLatin1String("/etc/radio.conf");
    return QCoreApplication::applicationDirPath() + QLatin1String("/../etc/radio.conf");
}

void setTunerStep(int step)
{
    if (step != 0 && step != 1) {
        TUNER_WAR() << step << "is not a tuner step variant (0 or 1), ignored.";
        return;
    }
    ConfFile file(tunerStepConfPath());
    file.beginGroup(QStringLiteral("Tune"));
    file.setValue(QStringLiteral("TunerStep"), step);
    file.sync();
    const QString regionName = file.value(QStringLiteral("Region")).toString();
    file.endGroup();
    if (regionName.isEmpty())
        return;
    const tagTunerRegion_T *region = findRegionByName(regionName, Qt::CaseInsensitive);
    if (!region) {
        TUNER_WAR() << regionName << "is not a known region, presets not changed.";
        return;
    }
    const tagTunerRegionVariant_T &v = region->variant[step];
    file.beginGroup(QStringLiteral("Freq"));
    for (int b = 0; b < kBandCount; ++b) {
        file.beginGroup(QStringLiteral("%1%2").arg(b < kFmBandCount ? QStringLiteral("FM") : QStringLiteral("AM")).arg(b));
        file.setValue(QStringLiteral("CurrFreq"), v.currFreq[b]);
        for (int i = 0; i < kPresetCount; ++i)
            file.setValue(QStringLiteral("preset_%1").arg(i), v.presets[b][i]);
        file.endGroup();
    }
    file.endGroup();
    file.sync();
}

} // namespace tuner
