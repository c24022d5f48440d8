#pragma once

// The head unit's plug-in interfaces. Their virtual order is the host's ABI:
// do not reorder.

#include <QString>
#include <QStringList>
#include <QtPlugin>

class QEvent;
class QWidget;
class KeyEvent;
class SourceInterface;
class WindowInterface;

enum WindowAttribute {
    WA_NoStatusBar = 0x01, // the window draws over the status bar area
    WA_KeepAlive = 0x02,   // the host must not destroy the window when it is left
    WA_Popup = 0x04,       // shown over the previous window
};

class StatusBarInterface
{
public:
    virtual ~StatusBarInterface() {}
    virtual void setTitle(const QString &title) = 0;
    virtual void setVisible(bool visible) = 0;
};

class AppPlugin
{
public:
    virtual ~AppPlugin() {}
    virtual void create() = 0;
    virtual QStringList windowInterfaceIDs() = 0;
    virtual QStringList sourceInterfaceIDs() = 0;
    virtual WindowInterface *requestWindowInterface(const QString &key) = 0;
    virtual SourceInterface *requestSourceInterface(const QString &key) = 0;
};

class SourceInterface
{
public:
    virtual ~SourceInterface() {}
    virtual QString name() const = 0;
    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool keyEvent(KeyEvent *event) = 0;
};

class WindowInterface
{
public:
    virtual ~WindowInterface() {}
    virtual QString name() const = 0;
    virtual void onCreate() = 0;
    virtual void onDestroy() = 0;
    virtual void onShow() = 0;
    virtual void onHide() = 0;
    virtual void onEnter() = 0;
    virtual void onExit() = 0;
    virtual QWidget *mainWidget() = 0;
    virtual QString titleText() const = 0;
    virtual void setWindowAttribute(WindowAttribute attribute, bool on) = 0;
    virtual bool testAttribute(WindowAttribute attribute) const = 0;
    virtual void setStatusBar(StatusBarInterface *statusBar) = 0;
    virtual void backEvent() = 0;
    virtual void setTranslation(const QString &language) = 0;
    virtual void dispatchEvent(QEvent *event) = 0;
    virtual bool keyEvent(KeyEvent *event) = 0;
};

class IAudioFocusChangeListener
{
public:
    virtual ~IAudioFocusChangeListener() {}
    virtual void onAudioFocusChange(int focusChange) = 0;
    virtual QString clientId() const = 0;
};

Q_DECLARE_INTERFACE(AppPlugin, "com.brackel.Plugin.AppPlugin/1.0")
Q_DECLARE_INTERFACE(SourceInterface, "com.brackel.Plugin.SourceInterface/1.0")
Q_DECLARE_INTERFACE(WindowInterface, "com.brackel.Plugin.WindowInterface/1.0")
// The IID says "Changed" while the class says "Change"; both are the host's.
Q_DECLARE_INTERFACE(IAudioFocusChangeListener, "com.brackel.nilo.IAudioFocusChangedListener/1.0")
