#pragma once

namespace tuner {

// What the radio's RDS state (statusChanged, RDSstate) says: 1 is RDS; 3, 5
// and 7 are RDS with a traffic programme (TP); anything else is no RDS. The
// model keeps the number as sent.
enum class RdsState { None, Rds, RdsWithTp };

constexpr RdsState rdsStateOf(int code)
{
    if (code == 1)
        return RdsState::Rds;
    return code == 3 || code == 5 || code == 7 ? RdsState::RdsWithTp : RdsState::None;
}

// A preset's item in the radio's AF/TA list.
enum class AfTaCode { Neither = 0, Af = 1, Ta = 2, Both = 3 };

constexpr bool hasAf(AfTaCode code)
{
    return code == AfTaCode::Af || code == AfTaCode::Both;
}

constexpr bool hasTa(AfTaCode code)
{
    return code == AfTaCode::Ta || code == AfTaCode::Both;
}

// The programme-type names the vehicle uses (SettingsUtil::getRdsSupport()):
// RDS's in Europe, RBDS's in North America. Codes run 0..kMaxPtyCode.
enum class PtyStandard { None = 0, Rds = 1, Rbds = 2 };
constexpr int kMaxPtyCode = 31;

constexpr PtyStandard ptyStandardOf(int rdsSupport)
{
    return rdsSupport == 1 ? PtyStandard::Rds : rdsSupport == 2 ? PtyStandard::Rbds : PtyStandard::None;
}

} // namespace tuner
