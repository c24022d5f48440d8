#pragma once

#include "tunerlog.h"

#include <QDBusPendingReply>

namespace tuner::bus {

// Waits for a getter's reply and returns its value, or T() (0, false, "") when
// the call failed: service absent, error reply, timeout or a reply of the wrong
// type. QDBusPendingReply<T>::value() must not be read on an error reply.
template<typename T>
T replyValue(QDBusPendingReply<T> reply, const char *getter)
{
    reply.waitForFinished();
    if (reply.isError()) {
        TUNER_WAR() << getter << reply.error().name() << "call failed, using the default value.";
        return T();
    }
    return reply.value();
}

} // namespace tuner::bus
