#include "settingsutil.h"

#include "hostlog.h"

#include <QSettings>

namespace cm {

namespace {

int readInt(QSettings &settings, const char *key, int fallback)
{
    const QVariant value = settings.value(QLatin1String(key));
    if (!value.isValid())
        return fallback;
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok) {
        HOST_WAR() << key << value.toString() << "is not a number, using" << fallback;
        return fallback;
    }
    return number;
}

} // namespace

SettingsUtil *SettingsUtil::instance()
{
    static SettingsUtil *settings = new SettingsUtil;
    return settings;
}

SettingsUtil::SettingsUtil()
{
    reload();
}

void SettingsUtil::reload()
{
    m_destination = 0;
    m_rdsSupport = 1;
    m_rdsAfTaTpSupport = 1;
    m_regionalSupport = 1;
    m_radioInfoDispLine = 1;

    const QString path = qEnvironmentVariable("NILO_VEHICLE_CONF");
    if (path.isEmpty())
        return;
    QSettings settings(path, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError) {
        HOST_WAR() << path << "cannot be read, using the defaults.";
        return;
    }
    settings.beginGroup(QStringLiteral("Vehicle"));
    m_destination = readInt(settings, "Destination", m_destination);
    m_rdsSupport = readInt(settings, "RdsSupport", m_rdsSupport);
    m_rdsAfTaTpSupport = readInt(settings, "RdsAfTaTpSupport", m_rdsAfTaTpSupport);
    m_regionalSupport = readInt(settings, "RegionalSupport", m_regionalSupport);
    m_radioInfoDispLine = readInt(settings, "RadioInfoDispLine", m_radioInfoDispLine);
}

} // namespace cm
