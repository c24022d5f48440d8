#include "stationlist.h"

#include <QDebug>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace sim {

static QVector<Station> readStations(const QJsonArray &array)
{
    QVector<Station> stations;
    for (const QJsonValue &value : array) {
        const QJsonObject o = value.toObject();
        Station s;
        s.freq = o.value(QLatin1String("freq")).toInt();
        s.ps = o.value(QLatin1String("ps")).toString();
        s.pty = o.value(QLatin1String("pty")).toInt();
        s.tp = o.value(QLatin1String("tp")).toBool();
        s.strength = o.value(QLatin1String("strength")).toInt(50);
        if (s.freq > 0)
            stations.append(s);
    }
    return stations;
}

bool StationList::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << "[WAR] sim --" << path << "cannot be read.";
        return false;
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &error);
    if (!doc.isObject()) {
        qWarning().noquote() << "[WAR] sim --" << path << "is not a station list:" << error.errorString();
        return false;
    }
    fm = readStations(doc.object().value(QLatin1String("fm")).toArray());
    am = readStations(doc.object().value(QLatin1String("am")).toArray());
    return true;
}

void StationList::fitToBand(QVector<Station> &stations, int low, int high, int step)
{
    QVector<Station> fitted;
    for (Station s : stations) {
        if (step > 0)
            s.freq = low + ((s.freq - low + step / 2) / step) * step;
        if (s.freq < low || s.freq > high)
            continue;
        const bool taken
            = std::any_of(fitted.cbegin(), fitted.cend(), [&](const Station &o) { return o.freq == s.freq; });
        if (!taken)
            fitted.append(s);
    }
    std::sort(fitted.begin(), fitted.end(), [](const Station &a, const Station &b) { return a.freq < b.freq; });
    stations = fitted;
}

} // namespace sim
