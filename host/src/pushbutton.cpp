#include "pushbutton.h"

#include <QMouseEvent>
#include <QTimerEvent>
#include <QWidget>

namespace cm {

PushButton::PushButton(QWidget *button, QObject *parent)
    : QObject(parent)
    , m_button(button)
{
    if (m_button)
        m_button->installEventFilter(this);
}

void PushButton::setLongPressedInterval(int ms)
{
    m_interval = qMax(1, ms);
}

bool PushButton::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_button)
        return QObject::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton && m_button->isEnabled()) {
            m_pressed = true;
            m_longPressed = false;
            m_timer.start(m_interval, this);
        }
        break;
    case QEvent::MouseButtonRelease:
        if (m_pressed && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            m_pressed = false;
            if (m_longPressed) {
                m_longPressed = false;
                emit longReleased();
            } else {
                m_timer.stop();
                // Like a real button: sliding off before release is no click.
                if (m_button->rect().contains(static_cast<QMouseEvent *>(event)->pos()))
                    emit shortClicked();
            }
        }
        break;
    case QEvent::Hide:
    case QEvent::EnabledChange:
        if (!m_button->isVisible() || !m_button->isEnabled())
            cancel();
        break;
    default:
        break;
    }
    return false;
}

void PushButton::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId())
        return QObject::timerEvent(event);
    m_timer.stop();
    if (!m_pressed)
        return;
    m_longPressed = true;
    emit longPressed();
}

// A button that disappears mid-press never sees its release; close the pair
// so a long press is always followed by longReleased().
void PushButton::cancel()
{
    m_timer.stop();
    const bool wasLong = m_longPressed;
    m_pressed = false;
    m_longPressed = false;
    if (wasLong)
        emit longReleased();
}

} // namespace cm
