#include "tunerrig.h"

#include "basewindow.h"
#include "busreply.h"
#include "mainwidget.h"
#include "mainwindow.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QtTest/QTest>

#include <unistd.h>

namespace {

// What a radio service on a European head unit answers at start-up.
const QVariantMap kRadioAnswers{{"bandId", 1},
                                {"bandPos", "0;0;0;0;0"},
                                {"fmMaxFreq", 10800},
                                {"fmMinFreq", 8750},
                                {"fmStep", 5},
                                {"amMaxFreq", 1602},
                                {"amMinFreq", 531},
                                {"amStep", 9},
                                {"freqBandId", 1},
                                {"bandCurFreq", "8800;9450;10020;999;1089"},
                                {"fmList", "8750;8800;9000;9450;9800;10000;8750;8800;9000;9450;9800;10000;"
                                           "8750;8800;9000;9450;9800;10000"},
                                {"amList", "531;603;999;1089;1404;1602;531;603;999;1089;1404;1602"}};

} // namespace

qint64 benchClockNs()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return clock.nsecsElapsed();
}

qint64 residentKiB()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.value(1).toLongLong() * (sysconf(_SC_PAGESIZE) / 1024);
}

void spin(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

TunerRig::TunerRig()
    : m_services(std::make_unique<FakeServices>())
{
    cm::BaseWindow::setHost(&m_host);
    for (auto it = kRadioAnswers.cbegin(); it != kRadioAnswers.cend(); ++it)
        m_services->radio()->setAnswer(it.key(), it.value());
    m_services->source()->setAnswer(QStringLiteral("currentWindow"), 1);
}

TunerRig::~TunerRig()
{
    close();
    cm::BaseWindow::setHost(nullptr);
}

bool TunerRig::open(bool services)
{
    if (services && !m_services->start())
        return false;
    m_frame = std::make_unique<QWidget>();
    m_frame->setFixedSize(800, 480);
    m_window = std::make_unique<tuner::MainWindow>();
    m_window->onCreate();
    QWidget *screen = m_window->screenStack();
    screen->setParent(m_frame.get());
    screen->setGeometry(0, 0, 800, 480);
    screen->show();
    m_frame->show();
    m_window->onShow();
    return QTest::qWaitForWindowExposed(m_frame.get());
}

void TunerRig::close()
{
    // The frame owns the adopted screen, as the host's does.
    m_frame.reset();
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

qint64 TunerRig::reportStation(int freq, int band)
{
    qint64 sent = 0;
    m_services->inServiceThread([&] {
        sent = benchClockNs();
        emit m_services->radio()->stationChanged(freq, band);
    });
    return sent;
}
