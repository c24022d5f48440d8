#pragma once

#include "hostevents.h"

#include <QObject>
#include <QStringList>

// Stands in for the host that receives what windows post: records them as
// "1007:value", "1008:value" or "deleteDelay".
class HostRecorder : public QObject
{
public:
    bool event(QEvent *e) override
    {
        switch (int(e->type())) {
        case Qx::TouchEventType:
            events.append(QStringLiteral("1007:%1").arg(static_cast<TouchEvent *>(e)->value()));
            return true;
        case Qx::TaskEventType:
            events.append(QStringLiteral("1008:%1").arg(static_cast<TaskEvent *>(e)->value()));
            return true;
        case Qx::WindowDeleteEventType:
            events.append(QStringLiteral("deleteDelay"));
            return true;
        default:
            return QObject::event(e);
        }
    }

    QStringList events;
};
