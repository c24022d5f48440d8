// nilo-sim: the radio, MCU and source services of the head unit on the
// session bus, for demos and end-to-end tests.
//
//   nilo-sim [--destination N] [--stations FILE] [--state FILE] [--time-scale PERCENT]
//   nilo-sim ctl METHOD [ARGS...]     calls the running simulator's nilo.Simulator

#include "busaddress.h"
#include "nilo_simulator_adaptor.h"
#include "serviceexport.h"
#include "simcontrol.h"
#include "simradio.h"
#include "simservices.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QTextStream>

namespace {

constexpr char kControlPath[] = "/Simulator";
constexpr char kControlInterface[] = "nilo.Simulator";

int control(const QStringList &args)
{
    if (args.isEmpty()) {
        QTextStream(stderr) << "usage: nilo-sim ctl METHOD [ARGS...]\n";
        return 2;
    }
    QDBusInterface sim(QLatin1String(tuner::bus::kMcuService), QLatin1String(kControlPath),
                       QLatin1String(kControlInterface), QDBusConnection::sessionBus());
    QVariantList callArgs;
    for (const QString &arg : args.mid(1)) {
        bool isNumber = false;
        const int number = arg.toInt(&isNumber);
        if (isNumber)
            callArgs.append(number);
        else if (arg == QLatin1String("true") || arg == QLatin1String("false"))
            callArgs.append(arg == QLatin1String("true"));
        else
            callArgs.append(arg);
    }
    const QDBusMessage reply = sim.callWithArgumentList(QDBus::Block, args.first(), callArgs);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        QTextStream(stderr) << reply.errorMessage() << "\n";
        return 1;
    }
    for (const QVariant &value : reply.arguments())
        QTextStream(stdout) << value.toString() << "\n";
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("nilo-sim"));

    const QStringList arguments = app.arguments();
    if (arguments.size() > 1 && arguments.at(1) == QLatin1String("ctl"))
        return control(arguments.mid(2));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Radio, MCU and source services of the head unit, simulated."));
    parser.addHelpOption();
    const QCommandLineOption destination(QStringLiteral("destination"),
                                         QStringLiteral("Region by destination code (0 EUR, 1 UC, 7 JPN ...)."),
                                         QStringLiteral("N"), QStringLiteral("0"));
    const QCommandLineOption stations(QStringLiteral("stations"), QStringLiteral("Station list (JSON)."),
                                      QStringLiteral("FILE"), QStringLiteral(":/sim/stations.json"));
    const QCommandLineOption state(QStringLiteral("state"), QStringLiteral("File that keeps the presets and band."),
                                   QStringLiteral("FILE"));
    const QCommandLineOption timeScale(QStringLiteral("time-scale"),
                                       QStringLiteral("Seek and scan durations in percent."), QStringLiteral("PERCENT"),
                                       QStringLiteral("100"));
    parser.addOptions({destination, stations, state, timeScale});
    parser.process(app);

    Q_INIT_RESOURCE(sim);
    sim::StationList list;
    if (!list.load(parser.value(stations)) && !list.load(QStringLiteral(":/sim/stations.json")))
        return 1;

    auto *radio = new sim::SimRadio(parser.value(destination).toInt(), list, parser.value(state), &app);
    radio->setTimeScale(parser.value(timeScale).toInt());
    auto *mcu = new sim::SimMcu(&app);
    auto *source = new sim::SimSource(&app);
    auto *control = new sim::SimControl(radio, source, &app);
    using namespace tuner::bus;
    const ServiceSet services{radio, mcu, source};
    attachAdaptors(services);
    new NiloSimulatorAdaptor(control);
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The control object first: once the names are claimed, clients may call it.
    const bool ok = bus.registerObject(QLatin1String(kControlPath), control) && exportServices(bus, services);
    if (!ok) {
        QTextStream(stderr) << "nilo-sim: cannot claim the services on the session bus: " << bus.lastError().message()
                            << "\n";
        return 1;
    }
    qInfo().noquote() << "sim: services ready on" << kMcuService << "and" << kSystemService;
    return app.exec();
}
