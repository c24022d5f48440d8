#pragma once

#include <QString>

namespace cm {

// Vehicle configuration, read from the INI file named by NILO_VEHICLE_CONF
// (group "Vehicle"). Missing file or keys give the defaults.
class SettingsUtil
{
public:
    static SettingsUtil *instance();

    int getDestination() const { return m_destination; }
    int getRdsSupport() const { return m_rdsSupport; }
    int getRdsAfTaTpSupport() const { return m_rdsAfTaTpSupport; }
    int getRegionalSupport() const { return m_regionalSupport; }
    int getRadioInfoDispLine() const { return m_radioInfoDispLine; }

    // Reads the file again (the host calls it when the vehicle setup changes).
    void reload();

private:
    SettingsUtil();

    int m_destination = 0;
    int m_rdsSupport = 1;
    int m_rdsAfTaTpSupport = 1;
    int m_regionalSupport = 1;
    int m_radioInfoDispLine = 1;
};

} // namespace cm
