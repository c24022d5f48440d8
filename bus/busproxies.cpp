#include "busproxies.h"

#include "busaddress.h"

namespace tuner::bus {

namespace {

template<typename Proxy>
Proxy *createProxy(const char *service, const char *path, QObject *parent)
{
    auto *proxy
        = new Proxy(QString::fromLatin1(service), QString::fromLatin1(path), QDBusConnection::sessionBus(), parent);
    proxy->setTimeout(kCallTimeoutMs);
    return proxy;
}

} // namespace

NiloRadioServiceInterface *createRadioProxy(QObject *parent)
{
    return createProxy<NiloRadioServiceInterface>(kMcuService, kRadioPath, parent);
}

NiloMcuServiceInterface *createMcuProxy(QObject *parent)
{
    return createProxy<NiloMcuServiceInterface>(kMcuService, kMcuPath, parent);
}

NiloSourceServiceInterface *createSourceProxy(QObject *parent)
{
    return createProxy<NiloSourceServiceInterface>(kSystemService, kSourcePath, parent);
}

} // namespace tuner::bus
