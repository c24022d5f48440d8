#pragma once

#include <QDBusConnection>

class NiloMcuServiceBackend;
class NiloRadioServiceBackend;
class NiloSourceServiceBackend;

namespace tuner::bus {

// The three services as one process offers them: each backend behind its
// generated adaptor, at its fixed path, under the two bus names.
struct ServiceSet
{
    NiloRadioServiceBackend *radio;
    NiloMcuServiceBackend *mcu;
    NiloSourceServiceBackend *source;
};

// Gives each backend its adaptor; once per backend, before the first export.
void attachAdaptors(const ServiceSet &services);
// Registers the objects, then claims the names; false if any step failed.
bool exportServices(QDBusConnection &connection, const ServiceSet &services);
// Gives the names up and removes the objects: the services vanish from the bus.
void withdrawServices(QDBusConnection &connection);

} // namespace tuner::bus
