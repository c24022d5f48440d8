#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>

#include "tunerkeys.h"

class QLabel;

namespace Ui {
class c20_003_tuner;
}

namespace tuner {

// The status page shown while the service searches (automatic store, seek,
// PTY search): its text and the dots running beside it.
class SearchStatus : public QObject
{
public:
    explicit SearchStatus(Ui::c20_003_tuner *form);

    // The status line of what the service does, from its status: automatic
    // store, seek or PTY search. A running animation keeps its period; only
    // the text changes. Nothing for the idle service.
    void show(WorkStatus status);
    void stop();
    bool isRunning() const { return m_dotsTimer.isActive(); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void show(int periodMs, const QString &text);

    Ui::c20_003_tuner *ui;
    QBasicTimer m_dotsTimer;
    QString m_dots;
    int m_dotsShown = 0;
};

} // namespace tuner
