#include "tuneroptions.h"

namespace tuner {

tagTunerOpItem_T tunerOpItems[kOptionItemCount] = {
    {OpItemAutoStore, 110, QString(), true, true},
    {OpItemLocal, 111, QString(), true, true},
    {OpItemAf, 113, QString(), true, true},
    {OpItemTa, 112, QString(), true, true},
    {OpItemRegional, 114, QString(), true, true},
    {OpItemPty, 115, QString(), true, true},
};

int g_TunerCurDSPL = 0;

} // namespace tuner
