#pragma once

#include "appplugin.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace cm {

// The host's window base. A plug-in window derives from it, hands it its
// widget with setMainWidget() and talks back to the host with postEvent().
class BaseWindow : public QObject, public WindowInterface
{
    Q_OBJECT
    Q_INTERFACES(WindowInterface)
public:
    explicit BaseWindow(QObject *parent = nullptr);
    ~BaseWindow() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

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
    virtual void reTranslateUI();
    QString name() const override;
    virtual void start();
    virtual void stop();

    // Host side: the object that receives what windows post.
    static void setHost(QObject *host);
    static QObject *host();

protected:
    void setMainWidget(QWidget *widget);
    // Hands the event to the host, which takes ownership.
    void postEvent(QEvent *event);
    // Asks the host to delete this window once the current event is done.
    void deleteDelay();

    StatusBarInterface *statusBar() const { return m_statusBar; }

private:
    QPointer<QWidget> m_mainWidget;
    StatusBarInterface *m_statusBar = nullptr;
    int m_attributes = 0;
};

} // namespace cm
