#include "inifile.h"
#include "radioconfkeys.h"
#include "region.h"
#include "tunerlog.h"
#include "tuneroptions.h"

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
    IniFile file(tunerStepConfPath());
    file.setValue(radioconf::tuneKey("TunerStep"), step);
    const QString regionName = file.plainText(radioconf::tuneKey("Region"));
    if (!regionName.isEmpty()) {
        if (const tagTunerRegion_T *region = findRegionByName(regionName, Qt::CaseInsensitive)) {
            const tagTunerRegionVariant_T &v = region->variant[step];
            for (int b = 0; b < kBandCount; ++b) {
                const radioconf::BandKeys keys = radioconf::BandKeys::own(b);
                file.setValue(keys.currFreq(), v.currFreq[b]);
                for (int i = 0; i < kPresetCount; ++i)
                    file.setValue(keys.preset(i), v.presets[b][i]);
            }
        } else {
            TUNER_WAR() << regionName << "is not a known region, presets not changed.";
        }
    }
    file.flush();
}

} // namespace tuner
