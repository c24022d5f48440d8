#pragma once

#include <QEvent>

namespace Qx {

// Custom QEvent types of the host. A key event's type is its phase.
enum EventType {
    KeyPressed = 1002,       // key down
    KeyShortReleased = 1003, // released before the long-press time
    KeyLongPressed = 1004,   // held for the long-press time
    KeyLongReleased = 1005,  // released after a long press
    TouchEventType = 1007,
    TaskEventType = 1008,
    WindowDeleteEventType = 1009, // a window asks the host to delete it later
};

enum Touch {
    TouchNone = 0,
    TouchBackToHome = 1,
};

enum TaskEvt {
    TaskNone = 0,
    TaskAlarmCancel = 5,
};

} // namespace Qx

template<typename T>
class SimpleEvent : public QEvent
{
public:
    SimpleEvent(Qx::EventType type, T value)
        : QEvent(QEvent::Type(type))
        , m_value(value)
    {}

    T value() const { return m_value; }

private:
    T m_value;
};

class TouchEvent : public SimpleEvent<Qx::Touch>
{
public:
    explicit TouchEvent(Qx::Touch touch)
        : SimpleEvent(Qx::TouchEventType, touch)
    {}
};

class TaskEvent : public SimpleEvent<Qx::TaskEvt>
{
public:
    explicit TaskEvent(Qx::TaskEvt task)
        : SimpleEvent(Qx::TaskEventType, task)
    {}
};

// A hardware or steering-wheel key; the event type is the key phase.
class KeyEvent : public SimpleEvent<int>
{
public:
    KeyEvent(Qx::EventType phase, int key)
        : SimpleEvent(phase, key)
    {}

    int key() const { return value(); }
};

// What cm::BaseWindow::deleteDelay() posts to the host.
class WindowDeleteEvent : public SimpleEvent<QObject *>
{
public:
    explicit WindowDeleteEvent(QObject *window)
        : SimpleEvent(Qx::WindowDeleteEventType, window)
    {}
};
