// nilo-tuner-host: loads the tuner plug-in as the head unit's host does and
// shows it in an 800 x 480 window, driven by the keyboard, the mouse and the
// nilo.TunerHost automation interface.
//
//   nilo-tuner-host [PLUGIN] [--screenshot FILE] [--settle MS] [--language de] [--wait-services MS]

#include "hostautomation.h"
#include "hostlog.h"
#include "hostshell.h"
#include "nilo_tunerhost_adaptor.h"
#include "theme.h"
#include "translator.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>
#include <QTimer>

namespace {

// The tuner reads the radio's state as it is created; give the services a
// moment to appear when both are started together.
void waitForServices(int ms)
{
    QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
    if (!bus)
        return;
    const QDeadlineTimer deadline(ms);
    while (!bus->isServiceRegistered(QStringLiteral("com.nilo.mcu")).value()) {
        if (deadline.hasExpired()) {
            HOST_WAR() << "com.nilo.mcu did not appear within" << ms << "ms; starting without it.";
            return;
        }
        QThread::msleep(20);
    }
}

// The installed plug-in beside the installed host app; otherwise the one of
// the build tree.
QString defaultPlugin()
{
    const QString installed
        = QCoreApplication::applicationDirPath() + QLatin1Char('/') + QStringLiteral(TUNER_INSTALLED_PLUGIN);
    return QFileInfo::exists(installed) ? QDir::cleanPath(installed) : QStringLiteral(TUNER_BUILT_PLUGIN);
}

} // namespace

int main(int argc, char *argv[])
{
    // The host draws with the raster engine only: the xcb platform would load
    // the machine's GLX (Mesa) for nothing.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    QApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("nilo-tuner-host"));
    // The app id a Wayland compositor places the window by (kiosk-shell, AGL).
    QGuiApplication::setDesktopFileName(QStringLiteral("nilo-tuner-host"));
    cm::applyTheme(app);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Host application for the Nilo tuner plug-in."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("plugin"),
                                 QStringLiteral("The plug-in library (default: the one built beside)."));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Start, let the screen settle, save a PNG, exit."),
                                        QStringLiteral("FILE"));
    const QCommandLineOption settle(QStringLiteral("settle"),
                                    QStringLiteral("Milliseconds to wait before --screenshot."), QStringLiteral("MS"),
                                    QStringLiteral("1500"));
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Language of the texts: en (default) or de."),
                                      QStringLiteral("LANG"), QStringLiteral("en"));
    const QCommandLineOption wait(QStringLiteral("wait-services"),
                                  QStringLiteral("Milliseconds to wait for the radio service."), QStringLiteral("MS"),
                                  QStringLiteral("3000"));
    parser.addOptions({screenshot, settle, language, wait});
    parser.process(app);
    if (!Translator::setLanguage(parser.value(language)))
        return 2;

    const QString plugin = parser.positionalArguments().value(0, defaultPlugin());
    waitForServices(parser.value(wait).toInt());

    HostShell shell;
    QString error;
    if (!shell.load(plugin, &error)) {
        QTextStream(stderr) << "nilo-tuner-host: " << error << "\n";
        return 1;
    }
    shell.startUp();

    auto *automation = new HostAutomation(&shell, &app);
    new NiloTunerHostAdaptor(automation);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/Host"), automation)
        || !bus.registerService(QStringLiteral("nilo.TunerHost")))
        HOST_WAR() << "automation interface not available:" << bus.lastError().message();

    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        QTimer::singleShot(parser.value(settle).toInt(), &app, [&, file] {
            const bool saved = automation->screenshot(file);
            QTextStream(stdout) << (saved ? "Screenshot saved to " : "Could not save ") << file << Qt::endl;
            app.exit(saved ? 0 : 1);
        });
    }
    return app.exec();
}
