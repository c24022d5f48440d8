#pragma once

#include <QProcess>
#include <QStringList>

// In a cross build the tests run under user-mode emulation, and so must every
// program of the project they start: its command line, emulator first.
inline QStringList emulatedCommand(const QStringList &command)
{
    const QString emulator = QStringLiteral(TUNER_EMULATOR);
    return emulator.isEmpty() ? command : QStringList{emulator} + command;
}

inline void startProgram(QProcess &process, const QString &program, const QStringList &arguments)
{
    const QStringList command = emulatedCommand(QStringList{program} + arguments);
    process.start(command.first(), command.mid(1));
}
