#include "hostshell.h"

#include "appplugin.h"
#include "basewindow.h"
#include "hostevents.h"
#include "hostlog.h"
#include "translator.h"

#include <QApplication>
#include <QHash>
#include <QJsonObject>
#include <QKeyEvent>
#include <QTimerEvent>
#include <QWidget>

namespace {

constexpr int kLongPressMs = 800;

// Keyboard keys to the head unit's key codes (see README).
int hostCode(int qtKey)
{
    switch (qtKey) {
    case Qt::Key_Up:
        return 44; // preset up
    case Qt::Key_Down:
        return 45; // preset down
    case Qt::Key_Right:
        return 47; // seek up; hold: manual step up
    case Qt::Key_Left:
        return 46; // seek down; hold: manual step down
    case Qt::Key_PageUp:
        return 7; // next preset; hold: seek up
    case Qt::Key_PageDown:
        return 8; // previous preset; hold: seek down
    case Qt::Key_B:
        return 33; // band
    case Qt::Key_1:
        return 34; // presets 1..6; hold: store
    case Qt::Key_2:
        return 35;
    case Qt::Key_3:
        return 36;
    case Qt::Key_4:
        return 37;
    case Qt::Key_5:
        return 38;
    case Qt::Key_6:
        return 39;
    case Qt::Key_Escape:
        return 66; // cancel announcement or alarm
    case Qt::Key_S:
        return 125; // stop a running search
    case Qt::Key_F1:
        return 177; // AF off
    case Qt::Key_F2:
        return 178; // AF on
    case Qt::Key_F3:
        return 179; // TA off
    case Qt::Key_F4:
        return 180; // TA on
    case Qt::Key_F5:
        return 181; // Local off
    case Qt::Key_F6:
        return 182; // Local on
    case Qt::Key_F7:
        return 184; // AM / FM3
    case Qt::Key_F8:
        return 185; // FM1 / AM2
    default:
        return 0;
    }
}

} // namespace

HostShell::HostShell(QObject *parent)
    : QObject(parent)
{
    cm::BaseWindow::setHost(this);
}

HostShell::~HostShell()
{
    cm::BaseWindow::setHost(nullptr);
    delete m_frame;
}

bool HostShell::load(const QString &pluginPath, QString *error)
{
    m_loader.setFileName(pluginPath);
    QObject *instance = m_loader.instance();
    m_plugin = qobject_cast<AppPlugin *>(instance);
    if (!m_plugin) {
        *error = instance ? QStringLiteral("%1 is not an AppPlugin").arg(pluginPath) : m_loader.errorString();
        return false;
    }
    return true;
}

void HostShell::startUp()
{
    m_plugin->create();
    const QStringList windows = m_plugin->windowInterfaceIDs();
    const QStringList sources = m_plugin->sourceInterfaceIDs();
    if (!windows.isEmpty())
        m_window = m_plugin->requestWindowInterface(windows.first());
    for (const QString &key : sources) {
        SourceInterface *source = m_plugin->requestSourceInterface(key);
        if (key == QLatin1String("tuner.src"))
            m_tunerSource = source;
        else if (key == QLatin1String("ta.src"))
            m_taSource = source;
    }

    m_frame = new QWidget;
    m_frame->setObjectName(QStringLiteral("HostFrame"));
    m_frame->setWindowTitle(QStringLiteral("Nilo tuner"));
    m_frame->setFixedSize(800, 480);
    m_frame->installEventFilter(this);
    qApp->installEventFilter(this);

    if (!m_window) {
        HOST_WAR() << "the plug-in offers no window.";
        return;
    }
    m_window->onCreate();
    adoptMainWidget();
    m_frame->show();
    m_window->onShow();
}

void HostShell::adoptMainWidget()
{
    QWidget *widget = m_window ? m_window->mainWidget() : nullptr;
    if (!widget || widget->parentWidget() == m_frame)
        return;
    widget->setParent(m_frame);
    widget->setGeometry(0, 0, 800, 480);
    widget->show();
}

bool HostShell::sourceKey(const QString &source, int code, int phase)
{
    SourceInterface *target = source == QLatin1String("tuner.src") ? m_tunerSource
                              : source == QLatin1String("ta.src")  ? m_taSource
                                                                   : nullptr;
    if (!target) {
        HOST_WAR() << source << "is not a source of the plug-in.";
        return false;
    }
    KeyEvent event(Qx::EventType(phase), code);
    return target->keyEvent(&event);
}

bool HostShell::setLanguage(const QString &language)
{
    // A window switches the catalogue itself and then retranslates.
    if (m_window)
        m_window->setTranslation(language);
    else
        Translator::setLanguage(language);
    return Translator::language() == language;
}

bool HostShell::windowKey(int code, int phase)
{
    if (!m_window)
        return false;
    KeyEvent event(Qx::EventType(phase), code);
    return m_window->keyEvent(&event);
}

bool HostShell::lifecycle(const QString &op)
{
    if (op == QLatin1String("start:tuner.src") && m_tunerSource)
        m_tunerSource->start();
    else if (op == QLatin1String("stop:tuner.src") && m_tunerSource)
        m_tunerSource->stop();
    else if (op == QLatin1String("start:ta.src") && m_taSource)
        m_taSource->start();
    else if (op == QLatin1String("stop:ta.src") && m_taSource)
        m_taSource->stop();
    else
        return m_window && windowLifecycle(op);
    return true;
}

bool HostShell::windowLifecycle(const QString &op)
{
    static const QHash<QString, void (WindowInterface::*)()> calls{
        {QStringLiteral("onShow"), &WindowInterface::onShow},
        {QStringLiteral("onHide"), &WindowInterface::onHide},
        {QStringLiteral("onEnter"), &WindowInterface::onEnter},
        {QStringLiteral("onExit"), &WindowInterface::onExit},
        {QStringLiteral("onDestroy"), &WindowInterface::onDestroy},
        {QStringLiteral("backEvent"), &WindowInterface::backEvent},
    };
    if (op == QLatin1String("onCreate")) {
        m_window->onCreate();
        adoptMainWidget();
        return true;
    }
    const auto call = calls.value(op);
    if (!call)
        return false;
    (m_window->*call)();
    return true;
}

// What the plug-in posts to the host.
bool HostShell::event(QEvent *event)
{
    const int type = event->type();
    if (type == Qx::TouchEventType || type == Qx::TaskEventType) {
        const int value = type == Qx::TouchEventType ? int(static_cast<TouchEvent *>(event)->value())
                                                     : int(static_cast<TaskEvent *>(event)->value());
        m_events.append(QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("value"), value}});
        qInfo().noquote() << "host: event" << type << "value" << value;
        return true;
    }
    if (type == Qx::WindowDeleteEventType) {
        m_events.append(QJsonObject{{QStringLiteral("type"), QStringLiteral("deleteDelay")}});
        qInfo().noquote() << "host: the window asks to be deleted";
        return true;
    }
    return QObject::event(event);
}

bool HostShell::eventFilter(QObject *watched, QEvent *event)
{
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) && watched->isWidgetType() && m_frame
        && static_cast<QWidget *>(watched)->window() == m_frame)
        return keyboardKey(event);
    return QObject::eventFilter(watched, event);
}

bool HostShell::keyboardKey(QEvent *event)
{
    auto *key = static_cast<QKeyEvent *>(event);
    const int code = hostCode(key->key());
    if (code == 0)
        return false;
    if (key->isAutoRepeat())
        return true;
    if (event->type() == QEvent::KeyPress) {
        m_heldKey = key->key();
        m_heldCode = code;
        m_heldLong = false;
        m_holdTimer.start(kLongPressMs, this);
        sourceKey(QStringLiteral("tuner.src"), code, Qx::KeyPressed);
    } else if (key->key() == m_heldKey) {
        m_holdTimer.stop();
        sourceKey(QStringLiteral("tuner.src"), code, m_heldLong ? Qx::KeyLongReleased : Qx::KeyShortReleased);
        m_heldKey = 0;
    }
    return true;
}

void HostShell::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_holdTimer.timerId())
        return QObject::timerEvent(event);
    m_holdTimer.stop();
    if (m_heldKey == 0)
        return;
    m_heldLong = true;
    sourceKey(QStringLiteral("tuner.src"), m_heldCode, Qx::KeyLongPressed);
}
