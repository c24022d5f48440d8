#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>

class QWidget;

namespace cm {

// Long-press helper for any button widget. A release before the interval is
// a shortClicked(); holding for the interval gives longPressed(), and the
// release after it longReleased(). The button itself keeps its own events.
class PushButton : public QObject
{
    Q_OBJECT
public:
    explicit PushButton(QWidget *button, QObject *parent = nullptr);

    void setLongPressedInterval(int ms);
    int longPressedInterval() const { return m_interval; }
    QWidget *button() const { return m_button; }

signals:
    void shortClicked();
    void longPressed();
    void longReleased();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void cancel();

    QPointer<QWidget> m_button;
    QBasicTimer m_timer;
    int m_interval = 1000;
    bool m_pressed = false;
    bool m_longPressed = false;
};

} // namespace cm
