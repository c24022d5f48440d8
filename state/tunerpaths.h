#pragma once

#include <QString>

namespace tuner::paths {

// The head unit's fixed file locations. With TUNER_ROOT set (tests, the
// runner) they are taken below that folder instead of the real root.
QString radioConf();   // "/system/etc/radio.conf"
QString settingsIni(); // "/media/flash/nvm/settings.ini"

} // namespace tuner::paths
