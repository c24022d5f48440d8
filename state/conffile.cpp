#include "conffile.h"

#include "tunerlog.h"

#include <QDir>
#include <QFileInfo>

namespace tuner {

static QString ensureFolder(const QString &path)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder))
        TUNER_WAR() << folder << "cannot be created.";
    return path;
}

ConfFile::ConfFile(const QString &path)
    : m_settings(ensureFolder(path), QSettings::IniFormat)
{
    if (m_settings.status() == QSettings::FormatError)
        TUNER_WAR() << path << "is not a valid INI file; its unreadable part will be rewritten.";
}

void ConfFile::sync()
{
    m_settings.sync();
    if (m_settings.status() == QSettings::AccessError)
        TUNER_WAR() << m_settings.fileName() << "cannot be written.";
}

} // namespace tuner
