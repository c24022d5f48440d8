#pragma once

#include "preferences.h"

#include <QString>
#include <QTemporaryDir>
#include <QVariant>

// A fresh tuner state for one test: TUNER_ROOT and NILO_DIR in a temporary
// folder, a vehicle configuration of the test's choosing, and the singletons
// dropped so they are built again from it.
class TestState
{
public:
    // `vehicleKeys`: the [Vehicle] keys, space-separated ("RdsSupport=2
    // Destination=7"); a key left out takes the host's default.
    explicit TestState(const QString &vehicleKeys = QString());
    ~TestState();

    QString root() const { return m_dir.path(); }
    QString radioConf() const;
    QString settingsIni() const;
    // A key of radio.conf ("Freq/FM0/CurrFreq"), read from the file as it is now.
    QVariant radioConfValue(const QString &key) const;
    QVariant settingsValue(const QString &key) const;
    // Writes the vehicle configuration and makes the host read it again.
    void setVehicle(const QString &vehicleKeys);

private:
    void reset();

    QTemporaryDir m_dir;
};

using tuner::prefs;
