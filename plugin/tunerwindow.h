#pragma once

#include "appplugin.h"

#include <QObject>

namespace tuner {

class MainWindow;

// The host's view of the tuner window: every call goes to the main window.
class TunerWindow : public QObject, public WindowInterface
{
    Q_OBJECT
    Q_INTERFACES(WindowInterface)
public:
    TunerWindow(MainWindow *window, QObject *parent);

    QString name() const override;
    void onCreate() override;
    void onDestroy() override;
    void onShow() override;
    void onHide() override;
    void onEnter() override;
    void onExit() override;
    QWidget *mainWidget() override;
    QString titleText() const override;
    void setWindowAttribute(WindowAttribute attribute, bool on) override;
    bool testAttribute(WindowAttribute attribute) const override;
    void setStatusBar(StatusBarInterface *statusBar) override;
    void backEvent() override;
    void setTranslation(const QString &language) override;
    void dispatchEvent(QEvent *event) override;
    bool keyEvent(KeyEvent *event) override;

private:
    MainWindow *m_window;
};

} // namespace tuner
