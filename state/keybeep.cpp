#include "keybeep.h"

#include "nilo_mcuservice_interface.h"

namespace tuner {

int KeyBeep::s_silenced = 0;

void KeyBeep::trigger(NiloMcuServiceInterface *mcu, int state)
{
    if (s_silenced == 0)
        mcu->triggerBeep(state);
}

} // namespace tuner
