#pragma once

#include <QDebug>
#include <QThread>

// Warnings read "[WAR] <thread> <function> <line> -- <values and text>", so a
// field log can be grepped by level and traced back to the line that wrote it.
#define TUNER_WAR() \
    qWarning().noquote() << "[WAR]" << QThread::currentThreadId() << Q_FUNC_INFO << __LINE__ << "--"
