#include "teststate.h"

#include "preferences.h"
#include "settingsutil.h"
#include "tunerfunction.h"
#include "tuneroptions.h"

#include <QFile>
#include <QSettings>

TestState::TestState(const QString &vehicleKeys)
{
    qputenv("TUNER_ROOT", m_dir.path().toUtf8());
    qputenv("NILO_DIR", (m_dir.path() + QLatin1String("/nilo")).toUtf8());
    setVehicle(vehicleKeys);
}

TestState::~TestState()
{
    tuner::tunerfunction::resetInstance();
    tuner::Preferences::resetInstance();
    tuner::g_TunerCurDSPL = 0;
}

QString TestState::radioConf() const
{
    return m_dir.path() + QLatin1String("/system/etc/radio.conf");
}

QString TestState::settingsIni() const
{
    return m_dir.path() + QLatin1String("/media/flash/nvm/settings.ini");
}

// The files are read as any other program would, after the tuner has
// written what it holds pending.
QVariant TestState::radioConfValue(const QString &key) const
{
    tuner::Preferences::getInstance()->flush();
    return QSettings(radioConf(), QSettings::IniFormat).value(key);
}

QVariant TestState::settingsValue(const QString &key) const
{
    tuner::Preferences::getInstance()->flush();
    return QSettings(settingsIni(), QSettings::IniFormat).value(key);
}

void TestState::setVehicle(const QString &vehicleKeys)
{
    // A new file each time: QSettings caches by path and may miss a quick
    // rewrite of the same size.
    static int generation = 0;
    const QString path = m_dir.path() + QStringLiteral("/vehicle-%1.ini").arg(++generation);
    qputenv("NILO_VEHICLE_CONF", path.toUtf8());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write("[Vehicle]\n" + vehicleKeys.toUtf8().replace(' ', '\n'));
    file.close();
    reset();
}

void TestState::reset()
{
    cm::SettingsUtil::instance()->reload();
    tuner::tunerfunction::resetInstance();
    tuner::Preferences::resetInstance();
    tuner::g_TunerCurDSPL = 0;
}
