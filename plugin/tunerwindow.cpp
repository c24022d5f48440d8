#include "tunerwindow.h"

#include "mainwindow.h"
#include "tunerlog.h"

namespace tuner {

TunerWindow::TunerWindow(MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{}

// A window requested before create() has no main window; calls then answer
// defaults instead of crashing the host.
#define FORWARD(call, fallback)                                                                                        \
    do {                                                                                                               \
        if (!m_window) {                                                                                               \
            TUNER_WAR() << "no main window: create() was not called.";                                                 \
            return fallback;                                                                                           \
        }                                                                                                              \
        return m_window->call;                                                                                         \
    } while (false)

QString TunerWindow::name() const
{
    return QStringLiteral("tuner");
}

void TunerWindow::onCreate()
{
    FORWARD(onCreate(), );
}
void TunerWindow::onDestroy()
{
    FORWARD(onDestroy(), );
}
void TunerWindow::onShow()
{
    FORWARD(onShow(), );
}
void TunerWindow::onHide()
{
    FORWARD(onHide(), );
}
void TunerWindow::onEnter()
{
    FORWARD(onEnter(), );
}
void TunerWindow::onExit()
{
    FORWARD(onExit(), );
}
QWidget *TunerWindow::mainWidget()
{
    FORWARD(mainWidget(), nullptr);
}
QString TunerWindow::titleText() const
{
    FORWARD(titleText(), QString());
}
void TunerWindow::setWindowAttribute(WindowAttribute attribute, bool on)
{
    FORWARD(setWindowAttribute(attribute, on), );
}
bool TunerWindow::testAttribute(WindowAttribute attribute) const
{
    FORWARD(testAttribute(attribute), false);
}
void TunerWindow::setStatusBar(StatusBarInterface *statusBar)
{
    FORWARD(setStatusBar(statusBar), );
}
void TunerWindow::backEvent()
{
    FORWARD(backEvent(), );
}
void TunerWindow::setTranslation(const QString &language)
{
    FORWARD(setTranslation(language), );
}
void TunerWindow::dispatchEvent(QEvent *event)
{
    FORWARD(dispatchEvent(event), );
}
bool TunerWindow::keyEvent(KeyEvent *event)
{
    FORWARD(keyEvent(event), false);
}

#undef FORWARD

} // namespace tuner
