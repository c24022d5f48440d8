#pragma once

#include <QBasicTimer>
#include <QJsonArray>
#include <QObject>
#include <QPluginLoader>
#include <QPointer>

class AppPlugin;
class SourceInterface;
class WindowInterface;
class QWidget;

// The head unit's application host in miniature: loads the plug-in, drives
// its life cycle, shows its window in an 800 x 480 frame, turns keyboard keys
// into host key events and records what the plug-in posts back.
class HostShell : public QObject
{
    Q_OBJECT
public:
    explicit HostShell(QObject *parent = nullptr);
    ~HostShell() override;

    bool load(const QString &pluginPath, QString *error);
    // create(), the interface ids and requests, onCreate(), onShow().
    void startUp();

    QWidget *frame() const { return m_frame; }
    bool sourceKey(const QString &source, int code, int phase);
    bool windowKey(int code, int phase);
    // False for an unknown operation.
    bool lifecycle(const QString &op);
    // Switches the texts' language and tells the window, as the head unit does.
    bool setLanguage(const QString &language);
    QJsonArray hostEvents() const { return m_events; }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    bool windowLifecycle(const QString &op);
    void adoptMainWidget();
    bool keyboardKey(QEvent *event);

    QPluginLoader m_loader;
    AppPlugin *m_plugin = nullptr;
    WindowInterface *m_window = nullptr;
    SourceInterface *m_tunerSource = nullptr;
    SourceInterface *m_taSource = nullptr;
    QWidget *m_frame = nullptr;
    QJsonArray m_events;

    // Keyboard: a held key becomes a long press after this long.
    QBasicTimer m_holdTimer;
    int m_heldKey = 0;  // Qt key
    int m_heldCode = 0; // host key code
    bool m_heldLong = false;
};
