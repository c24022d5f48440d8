#include "serviceexport.h"

#include "busaddress.h"
#include "nilo_mcuservice_adaptor.h"
#include "nilo_radioservice_adaptor.h"
#include "nilo_sourceservice_adaptor.h"

namespace tuner::bus {

void attachAdaptors(const ServiceSet &services)
{
    new NiloRadioServiceAdaptor(services.radio);
    new NiloMcuServiceAdaptor(services.mcu);
    new NiloSourceServiceAdaptor(services.source);
}

bool exportServices(QDBusConnection &connection, const ServiceSet &services)
{
    return connection.isConnected() && connection.registerObject(QLatin1String(kRadioPath), services.radio)
           && connection.registerObject(QLatin1String(kMcuPath), services.mcu)
           && connection.registerObject(QLatin1String(kSourcePath), services.source)
           && connection.registerService(QLatin1String(kMcuService))
           && connection.registerService(QLatin1String(kSystemService));
}

void withdrawServices(QDBusConnection &connection)
{
    connection.unregisterService(QLatin1String(kMcuService));
    connection.unregisterService(QLatin1String(kSystemService));
    connection.unregisterObject(QLatin1String(kRadioPath));
    connection.unregisterObject(QLatin1String(kMcuPath));
    connection.unregisterObject(QLatin1String(kSourcePath));
}

} // namespace tuner::bus
