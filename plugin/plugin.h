#pragma once

#include "appplugin.h"

#include <QObject>

namespace tuner {

class MainWindow;

// What the host loads: hands out the tuner window and the two sources, all of
// them thin wrappers around the one main window.
class Plugin : public QObject, public AppPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.brackel.Qt.NILO.TunerPlugin")
    Q_INTERFACES(AppPlugin)
public:
    explicit Plugin(QObject *parent = nullptr);
    ~Plugin() override;

    void create() override;
    QStringList windowInterfaceIDs() override;
    QStringList sourceInterfaceIDs() override;
    WindowInterface *requestWindowInterface(const QString &key) override;
    SourceInterface *requestSourceInterface(const QString &key) override;

private:
    MainWindow *m_mainWindow = nullptr;
    WindowInterface *m_tunerWindow = nullptr;
    SourceInterface *m_tunerSource = nullptr;
    SourceInterface *m_taSource = nullptr;
};

} // namespace tuner
