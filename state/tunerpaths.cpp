#include "tunerpaths.h"

namespace tuner::paths {

namespace {
QString underRoot(const char *path)
{
    return qEnvironmentVariable("TUNER_ROOT") + QLatin1String(path);
}
} // namespace

QString radioConf()
{
    return underRoot("/system/etc/radio.conf");
}

QString settingsIni()
{
    return underRoot("/media/flash/nvm/settings.ini");
}

} // namespace tuner::paths
