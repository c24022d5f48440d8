#include "hostautomation.h"

#include "audiomanager.h"
#include "hostlog.h"
#include "hostshell.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QScrollBar>
#include <QScroller>
#include <QStyleHints>
#include <QTimer>
#include <QWidget>
#include <QWindow>

QT_BEGIN_NAMESPACE
// QtGui's entry for mouse input from the window system, the one QtTest uses
// too: declared here so the host app does not carry the test library.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
QT_END_NAMESPACE

HostAutomation::HostAutomation(HostShell *shell, QObject *parent)
    : QObject(parent)
    , m_shell(shell)
{}

bool HostAutomation::sourceKey(const QString &source, int code, int phase)
{
    return m_shell->sourceKey(source, code, phase);
}

bool HostAutomation::windowKey(int code, int phase)
{
    return m_shell->windowKey(code, phase);
}

bool HostAutomation::setLanguage(const QString &language)
{
    return m_shell->setLanguage(language);
}

// Mouse input enters through the window system, as a touch would: the widget
// under the point gets it, and keeps the grab until the release.
void HostAutomation::deliverMouse(QEvent::Type type, int x, int y)
{
    QWindow *window = m_shell->frame() ? m_shell->frame()->windowHandle() : nullptr;
    if (!window)
        return;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    m_held.setFlag(Qt::LeftButton,
                   type == QEvent::MouseButtonPress || (type == QEvent::MouseMove && m_held.testFlag(Qt::LeftButton)));
    const QPoint local(x, y);
    qt_handleMouseEvent(window, local, window->mapToGlobal(local), m_held, button, type, Qt::NoModifier, ++m_timestamp);
    // Two taps in a row are two presses, never a double click.
    if (type == QEvent::MouseButtonRelease)
        m_timestamp += QGuiApplication::styleHints()->mouseDoubleClickInterval();
    QCoreApplication::processEvents();
}

void HostAutomation::press(int x, int y)
{
    deliverMouse(QEvent::MouseButtonPress, x, y);
}

void HostAutomation::move(int x, int y)
{
    deliverMouse(QEvent::MouseMove, x, y);
}

void HostAutomation::release(int x, int y)
{
    deliverMouse(QEvent::MouseButtonRelease, x, y);
}

void HostAutomation::tap(int x, int y)
{
    press(x, y);
    release(x, y);
}

QString HostAutomation::widgets()
{
    QJsonArray list;
    QWidget *frame = m_shell->frame();
    if (!frame)
        return QStringLiteral("[]");
    const QList<QWidget *> children = frame->findChildren<QWidget *>();
    for (QWidget *w : children) {
        if (!w->isVisible())
            continue;
        const QPoint topLeft = w->mapTo(frame, QPoint(0, 0));
        QString text;
        bool checked = false;
        if (auto *label = qobject_cast<QLabel *>(w)) {
            text = label->text();
        } else if (auto *button = qobject_cast<QAbstractButton *>(w)) {
            text = button->text();
            checked = button->isChecked();
        }
        QJsonObject entry{
            {QStringLiteral("name"), w->objectName()},
            {QStringLiteral("class"), QString::fromLatin1(w->metaObject()->className())},
            {QStringLiteral("x"), topLeft.x()},
            {QStringLiteral("y"), topLeft.y()},
            {QStringLiteral("w"), w->width()},
            {QStringLiteral("h"), w->height()},
            {QStringLiteral("text"), text},
            {QStringLiteral("checked"), checked},
            {QStringLiteral("enabled"), w->isEnabled()},
        };
        // A list that a finger moved: where it stands, and whether it still moves.
        if (auto *area = qobject_cast<QAbstractScrollArea *>(w)) {
            const QScrollBar *bar = area->verticalScrollBar();
            QWidget *viewport = area->viewport();
            entry.insert(QStringLiteral("scroll"), bar->value());
            entry.insert(QStringLiteral("scrollEnd"), bar->maximum());
            entry.insert(QStringLiteral("moving"),
                         QScroller::hasScroller(viewport)
                             && QScroller::scroller(viewport)->state() != QScroller::Inactive);
        }
        list.append(entry);
    }
    return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
}

bool HostAutomation::screenshot(const QString &path)
{
    return m_shell->frame() && m_shell->frame()->grab().save(path, "PNG");
}

void HostAutomation::lifecycle(const QString &op)
{
    if (!m_shell->lifecycle(op))
        HOST_WAR() << op << "is not a life-cycle operation of this host.";
}

void HostAutomation::audioFocus(int change)
{
    AudioManager::instance()->dispatchFocusChange(change);
}

void HostAutomation::setFocusResult(int result)
{
    AudioManager::instance()->setFocusResult(result);
}

QString HostAutomation::hostEvents()
{
    return QString::fromUtf8(QJsonDocument(m_shell->hostEvents()).toJson(QJsonDocument::Compact));
}

void HostAutomation::quit()
{
    // After the reply has left.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
}
