#include "rdsswitches.h"

#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "settingsutil.h"

namespace tuner {

bool afTaTpSupported()
{
    return cm::SettingsUtil::instance()->getRdsAfTaTpSupport() == 1;
}

void applyPresetTaAf(NiloRadioServiceInterface *radio, int preset)
{
    if (!afTaTpSupported())
        return;
    Preferences *p = prefs();
    p->setAf(p->fmAf(preset));
    p->setTa(p->fmTA(preset));
    radio->setTa(p->ta());
    radio->setAf(p->af());
}

void sendTa(NiloRadioServiceInterface *radio)
{
    Preferences *p = prefs();
    radio->rdsCtrl(p->ta(), p->af(), p->regional());
    radio->setTa(p->ta());
}

void sendAf(NiloRadioServiceInterface *radio)
{
    Preferences *p = prefs();
    radio->setAf(p->af());
    radio->rdsCtrl(p->ta(), p->af(), p->regional());
}

void sendRegional(NiloRadioServiceInterface *radio)
{
    Preferences *p = prefs();
    radio->rdsCtrl(p->ta(), p->af(), p->regional());
}

} // namespace tuner
