#pragma once

#include <QSettings>

namespace tuner {

// An INI file opened for one call: its folder is created when missing, and a
// failed write is reported as a warning (the caller carries on regardless).
class ConfFile
{
public:
    explicit ConfFile(const QString &path);

    QSettings &settings() { return m_settings; }
    void setValue(const QString &key, const QVariant &value) { m_settings.setValue(key, value); }
    void beginGroup(const QString &group) { m_settings.beginGroup(group); }
    void endGroup() { m_settings.endGroup(); }
    QVariant value(const QString &key) const { return m_settings.value(key); }
    void sync();

private:
    QSettings m_settings;
};

} // namespace tuner
