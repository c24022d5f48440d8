#pragma once

#include <QEvent>
#include <QObject>

class HostShell;

// Behind nilo.TunerHost: lets tests and tools drive the host like a driver
// and a head unit would.
class HostAutomation : public QObject
{
    Q_OBJECT
public:
    explicit HostAutomation(HostShell *shell, QObject *parent = nullptr);

    bool sourceKey(const QString &source, int code, int phase);
    bool windowKey(int code, int phase);
    bool setLanguage(const QString &language);
    void press(int x, int y);
    void move(int x, int y);
    void release(int x, int y);
    void tap(int x, int y);
    QString widgets();
    bool screenshot(const QString &path);
    void lifecycle(const QString &op);
    void audioFocus(int change);
    void setFocusResult(int result);
    QString hostEvents();
    void quit();

private:
    void deliverMouse(QEvent::Type type, int x, int y);

    HostShell *m_shell;
    Qt::MouseButtons m_held;
    int m_timestamp = 0;
};
