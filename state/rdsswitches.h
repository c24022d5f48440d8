#pragma once

class NiloRadioServiceInterface;

namespace tuner {

// The vehicle offers AF, TA and TP at all.
bool afTaTpSupported();
// A recalled FM preset brings its own AF and TA switches: kept, then sent.
void applyPresetTaAf(NiloRadioServiceInterface *radio, int preset);
// One switch as the preferences hold it, with the RDS control that carries all three.
void sendTa(NiloRadioServiceInterface *radio);
void sendAf(NiloRadioServiceInterface *radio);
void sendRegional(NiloRadioServiceInterface *radio);

} // namespace tuner
