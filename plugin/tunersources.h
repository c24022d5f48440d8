#pragma once

#include "appplugin.h"

#include <QObject>

namespace tuner {

class MainWindow;

// The tuner audio source and the traffic-announcement source. Both do the
// same; the main window tells the cases apart from the services' state.
class TunerSource : public QObject, public SourceInterface
{
    Q_OBJECT
    Q_INTERFACES(SourceInterface)
public:
    TunerSource(MainWindow *window, QObject *parent);

    QString name() const override;
    void start() override;
    void stop() override;
    bool keyEvent(KeyEvent *event) override;

private:
    MainWindow *m_window;
};

class TASource : public QObject, public SourceInterface
{
    Q_OBJECT
    Q_INTERFACES(SourceInterface)
public:
    TASource(MainWindow *window, QObject *parent);

    QString name() const override;
    void start() override;
    void stop() override;
    bool keyEvent(KeyEvent *event) override;

private:
    MainWindow *m_window;
};

} // namespace tuner
