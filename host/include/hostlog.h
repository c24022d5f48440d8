#pragma once

#include <QDebug>
#include <QThread>

// The head unit's warning line: "[WAR] <thread> <function> <line> -- <text>".
#define HOST_WAR() qWarning().noquote() << "[WAR]" << QThread::currentThreadId() << Q_FUNC_INFO << __LINE__ << "--"
