#include "basewindow.h"

#include "hostevents.h"
#include "hostlog.h"
#include "translator.h"

#include <QCoreApplication>
#include <QWidget>

namespace cm {

namespace {
QPointer<QObject> &hostObject()
{
    static QPointer<QObject> host;
    return host;
}
} // namespace

BaseWindow::BaseWindow(QObject *parent)
    : QObject(parent)
{}

BaseWindow::~BaseWindow() = default;

void BaseWindow::setHost(QObject *host)
{
    hostObject() = host;
}

QObject *BaseWindow::host()
{
    return hostObject();
}

bool BaseWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWidget && event->type() == QEvent::LanguageChange)
        reTranslateUI();
    return QObject::eventFilter(watched, event);
}

void BaseWindow::onCreate() {}

void BaseWindow::onDestroy() {}

void BaseWindow::onShow()
{
    if (m_mainWidget)
        m_mainWidget->show();
}

void BaseWindow::onHide()
{
    if (m_mainWidget)
        m_mainWidget->hide();
}

void BaseWindow::onEnter() {}

void BaseWindow::onExit() {}

QWidget *BaseWindow::mainWidget()
{
    return m_mainWidget;
}

QString BaseWindow::titleText() const
{
    return QString();
}

void BaseWindow::setWindowAttribute(WindowAttribute attribute, bool on)
{
    if (on)
        m_attributes |= attribute;
    else
        m_attributes &= ~int(attribute);
}

bool BaseWindow::testAttribute(WindowAttribute attribute) const
{
    return (m_attributes & attribute) != 0;
}

void BaseWindow::setStatusBar(StatusBarInterface *statusBar)
{
    m_statusBar = statusBar;
}

void BaseWindow::backEvent() {}

void BaseWindow::setTranslation(const QString &language)
{
    if (Translator::setLanguage(language))
        reTranslateUI();
}

void BaseWindow::dispatchEvent(QEvent *event)
{
    if (m_mainWidget && event)
        QCoreApplication::sendEvent(m_mainWidget, event);
}

bool BaseWindow::keyEvent(KeyEvent *)
{
    return false;
}

void BaseWindow::reTranslateUI() {}

QString BaseWindow::name() const
{
    return QString();
}

void BaseWindow::start() {}

void BaseWindow::stop() {}

void BaseWindow::setMainWidget(QWidget *widget)
{
    if (m_mainWidget)
        m_mainWidget->removeEventFilter(this);
    m_mainWidget = widget;
    if (m_mainWidget)
        m_mainWidget->installEventFilter(this);
}

void BaseWindow::postEvent(QEvent *event)
{
    if (!event)
        return;
    if (!hostObject()) {
        HOST_WAR() << event->type() << "no host to receive the event, dropped.";
        delete event;
        return;
    }
    QCoreApplication::postEvent(hostObject(), event);
}

void BaseWindow::deleteDelay()
{
    postEvent(new WindowDeleteEvent(this));
}

} // namespace cm
