#pragma once

#include "appplugin.h"

#include <QObject>

namespace tuner {

class MainWindow;

// A source of the host that starts, stops and feeds keys to the main window.
class WindowSource : public QObject, public SourceInterface
{
    Q_OBJECT
    Q_INTERFACES(SourceInterface)
public:
    QString name() const override { return m_name; }
    void start() override;
    void stop() override;
    bool keyEvent(KeyEvent *event) override;

protected:
    WindowSource(const QString &name, MainWindow *window, QObject *parent);

private:
    bool hasWindow() const;

    QString m_name;
    MainWindow *m_window;
};

// The tuner audio source and the traffic-announcement source. Both do the
// same; the main window tells the cases apart from the services' state.
class TunerSource : public WindowSource
{
    Q_OBJECT
public:
    TunerSource(MainWindow *window, QObject *parent);
};

class TASource : public WindowSource
{
    Q_OBJECT
public:
    TASource(MainWindow *window, QObject *parent);
};

} // namespace tuner
