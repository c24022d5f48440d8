#pragma once

#include <QObject>

namespace tuner {

// Tells who shows the playing station elsewhere (the media player) about a
// change of what identifies it: band, frequency, RDS name and status,
// programme type. One for the process, never destroyed: a receiver may still
// be let go of while the process exits, after the plug-in's statics are gone.
class StationWatch : public QObject
{
    Q_OBJECT
public:
    static StationWatch *instance();

signals:
    void changed();

private:
    StationWatch() = default;
};

} // namespace tuner
