#pragma once

#include "nilo_mcuservice_interface.h"
#include "nilo_radioservice_interface.h"
#include "nilo_sourceservice_interface.h"

namespace tuner::bus {

// Proxies on the session bus at the services' fixed addresses, with the
// bounded call timeout applied.
NiloRadioServiceInterface *createRadioProxy(QObject *parent);
NiloMcuServiceInterface *createMcuProxy(QObject *parent);
NiloSourceServiceInterface *createSourceProxy(QObject *parent);

} // namespace tuner::bus
