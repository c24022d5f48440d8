// Start-up baselines: the least a Qt Widgets program does to show an 800 x 480
// window with the tuner's fonts and save its first frame as a PNG; with
// --minimal, the least of all: one label.
//
//   nilo-bench-bare-window [--minimal] FILE
//
// Built a second time as nilo-bench-reads-window, the bare window first does
// what the protocol asks of every tuner before its first frame: it watches the
// radio service's 18 signals and reads its 25 start-up getters, in the three
// batches the tuner waits for. No plug-in, form or image: the least any tuner
// can start in.

#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QTextStream>
#include <QTimer>
#include <QWidget>
#ifdef BARE_WINDOW_READS_THE_RADIO
#include "busaddress.h"

#include <QtDBus>
#endif

static int saveFirstFrame(QApplication &app, QWidget &window, const QString &file)
{
    window.show();
    QTimer::singleShot(0, &app, [&] {
        const bool saved = window.grab().save(file, "PNG");
        // The same report as the tuner's host: the benchmark times its arrival.
        QTextStream(stdout) << (saved ? "Screenshot saved to " : "Could not save ") << file << Qt::endl;
        app.exit(saved ? 0 : 1);
    });
    return app.exec();
}

#ifdef BARE_WINDOW_READS_THE_RADIO
// False when a getter went unanswered: the time would then be the time-outs'.
static bool readTheRadio(QObject *receiver, const char *slot)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString service = QLatin1String(tuner::bus::kMcuService);
    const QString path = QLatin1String(tuner::bus::kRadioPath);
    const QString interface = QStringLiteral("nilo.RadioService");
    for (const char *signal :
         {"ProgramName", "afEnableChanged", "aftaState", "antennaSignalChanged", "audioChanged", "autoScanCompleted",
          "bandChanged", "bandFMAMChang", "initDate", "localChanged", "ptyChanged", "rdsChanged", "seekState",
          "stationChanged", "statusChanged", "taEnableChanged", "tp_pi_status", "work_status"})
        bus.connect(service, path, interface, QString::fromLatin1(signal), receiver, slot);
    bool answered = true;
    const auto readBatch = [&](const QStringList &getters) {
        QList<QDBusPendingCall> calls;
        for (const QString &getter : getters)
            calls << bus.asyncCall(QDBusMessage::createMethodCall(service, path, interface, getter),
                                   tuner::bus::kCallTimeoutMs);
        for (QDBusPendingCall &call : calls) {
            call.waitForFinished();
            answered = answered && !call.isError();
        }
    };
    readBatch({"bandSwitch", "bandId", "fmList", "amList", "fmMaxFreq", "fmMinFreq", "fmStep", "amMaxFreq", "amMinFreq",
               "amStep", "bandCurFreq", "bandPos", "initLocal", "initRegional", "initAfTaList", "initAfTa"});
    readBatch({"initPsName1", "initPsName2", "piTpStatus", "rdsProgramName", "RDSstate"});
    readBatch({"freqBandId", "ptyType", "rdsName", "workStateType"});
    return answered;
}
#endif

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const bool minimal = argc > 2 && qstrcmp(argv[1], "--minimal") == 0;
    if (argc < 2 + minimal)
        return 2;
    const QString file = QString::fromLocal8Bit(argv[1 + minimal]);

    QWidget window;
    window.setFixedSize(800, 480);
#ifdef BARE_WINDOW_READS_THE_RADIO
    if (!readTheRadio(&window, SLOT(update()))) {
        QTextStream(stderr) << "The radio service did not answer its start-up getters" << Qt::endl;
        return 1;
    }
#endif
    if (minimal) {
        new QLabel(QStringLiteral("87.50"), &window);
        return saveFirstFrame(app, window, file);
    }
    // The fonts of the tuner's first frame, family and pixel size, each with
    // the kind of text it draws there: band name, frequency, unit, presets.
    const QString digitFamily = QStringLiteral("DejaVu Sans Condensed");
    const auto addLabel = [&window](const QString &text, const QFont &font, const QRect &geometry) {
        auto *label = new QLabel(text, &window);
        label->setFont(font);
        label->setGeometry(geometry);
    };
    const auto pixelFont = [](const QString &family, int pixels) {
        QFont font(family);
        font.setPixelSize(pixels);
        return font;
    };
    const QString textFamily = QApplication::font().family();
    addLabel(QStringLiteral("FM"), pixelFont(textFamily, 20), QRect(328, 62, 142, 32));
    addLabel(QStringLiteral("87.50"), pixelFont(digitFamily, 86), QRect(207, 114, 260, 197));
    addLabel(QStringLiteral("MHz"), pixelFont(textFamily, 25), QRect(430, 280, 100, 30));
    const QStringList presets{QStringLiteral("87.50"), QStringLiteral("97.50"),  QStringLiteral("98.00"),
                              QStringLiteral("98.50"), QStringLiteral("107.50"), QStringLiteral("108.00")};
    for (int k = 0; k < presets.size(); ++k)
        addLabel(presets[k], pixelFont(digitFamily, 30), QRect(38 + 123 * k, 401, 107, 44));
    return saveFirstFrame(app, window, file);
}
