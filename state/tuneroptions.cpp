#include "tuneroptions.h"

#include "rdscodes.h"

namespace tuner {

tagTunerOpItem_T tunerOpItems[kOptionItemCount] = {
    {OpItemAutoStore, 110, QString(), true, true}, {OpItemLocal, 111, QString(), true, true},
    {OpItemAf, 113, QString(), true, true},        {OpItemTa, 112, QString(), true, true},
    {OpItemRegional, 114, QString(), true, true},  {OpItemPty, 115, QString(), true, true},
};

int g_TunerCurDSPL = 0;

int ptyTextId(int rdsSupport, int code)
{
    const PtyStandard standard = ptyStandardOf(rdsSupport);
    if (standard == PtyStandard::Rds)
        return code >= 1 && code <= 29 ? 52 + code : 0;
    if (standard != PtyStandard::Rbds)
        return 0;
    if (code == 1)
        return 53;
    if (code == 2)
        return 55;
    if (code >= 3 && code <= 23)
        return 79 + code;
    if (code >= 24 && code <= 26)
        return 107 + code - 24;
    if (code == 29)
        return 103;
    return 0; // 27 and 28 have no RBDS name
}

} // namespace tuner
