// The plug-in as the host sees it: loaded from its file, its metadata, the
// keys it answers, the lazily built wrappers, and their interface casts.

#include "appplugin.h"
#include "audiomanager.h"
#include "fakeservices.h"
#include "hostevents.h"
#include "translator.h"
#include "warningcounter.h"

#include <QtTest>

class tst_Plugin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("TUNER_ROOT", m_root.path().toUtf8());
        qputenv("NILO_VEHICLE_CONF", (m_root.path() + "/none.ini").toUtf8());
        m_fakes = std::make_unique<FakeServices>();
        QVERIFY(m_fakes->start());
        m_plugin = qobject_cast<AppPlugin *>(m_loader.instance());
        QVERIFY2(m_plugin, qPrintable(m_loader.errorString()));
    }

    void cleanupTestCase()
    {
        m_loader.unload();
        m_fakes.reset();
    }

    void metadataNamesThePlugin()
    {
        const QJsonObject meta = m_loader.metaData();
        QCOMPARE(meta.value("IID").toString(), QStringLiteral("com.brackel.Qt.NILO.TunerPlugin"));
        QCOMPARE(meta.value("className").toString(), QStringLiteral("Plugin"));
        QCOMPARE(meta.value("debug").toBool(), false);
        // The instance is made once and handed out again.
        QCOMPARE(m_loader.instance(), m_loader.instance());
        // The tuner-step switch is part of the library's interface.
        QVERIFY(QLibrary(QStringLiteral(TUNER_PLUGIN_FILE)).resolve("_ZN5tuner12setTunerStepEi"));
    }

    // The host's obligation is create() first; a host that forgets gets warnings, not a crash.
    void requestsBeforeCreateAnswerDefaults()
    {
        // A copy of the file loads as a library of its own, with a root of its own.
        const QString copy = m_root.path() + QStringLiteral("/libtuner-copy.so");
        QVERIFY(QFile::copy(QStringLiteral(TUNER_PLUGIN_FILE), copy));
        QPluginLoader loader(copy);
        auto *plugin = qobject_cast<AppPlugin *>(loader.instance());
        QVERIFY(plugin);
        QVERIFY(loader.instance() != m_loader.instance());
        WindowInterface *window = plugin->requestWindowInterface(QStringLiteral("tuner.win"));
        SourceInterface *source = plugin->requestSourceInterface(QStringLiteral("tuner.src"));
        QVERIFY(window && source);
        QCOMPARE(window->name(), QStringLiteral("tuner"));
        WarningCounter warnings;
        QCOMPARE(window->mainWidget(), nullptr);
        QCOMPARE(window->testAttribute(WA_KeepAlive), false);
        window->onCreate();
        KeyEvent key(Qx::KeyShortReleased, 7);
        QCOMPARE(source->keyEvent(&key), false);
        source->start();
        QCOMPARE(warnings.lines().filter(QStringLiteral("no main window: create() was not called.")).size(), 5);
        QCOMPARE(warnings.count(), 5);
        loader.unload();
    }

    // The host asks by exact key, gets one wrapper per key, and casts it by
    // interface id.
    void interfacesByExactKey()
    {
        QCOMPARE(m_plugin->windowInterfaceIDs(), QStringList{"tuner.win"});
        QCOMPARE(m_plugin->sourceInterfaceIDs(), (QStringList{"tuner.src", "ta.src"}));
        for (const char *key : {"tuner.win", "TA.SRC", "", "ta.src "})
            QCOMPARE(m_plugin->requestSourceInterface(QLatin1String(key)), nullptr);
        for (const char *key : {"Tuner.win", "tuner.src"})
            QCOMPARE(m_plugin->requestWindowInterface(QLatin1String(key)), nullptr);

        m_plugin->create();
        SourceInterface *ta = m_plugin->requestSourceInterface(QStringLiteral("ta.src"));
        SourceInterface *tuner = m_plugin->requestSourceInterface(QStringLiteral("tuner.src"));
        WindowInterface *window = m_plugin->requestWindowInterface(QStringLiteral("tuner.win"));
        QCOMPARE(m_plugin->requestSourceInterface(QStringLiteral("ta.src")), ta);
        QCOMPARE(m_plugin->requestWindowInterface(QStringLiteral("tuner.win")), window);
        QVERIFY(tuner != ta);
        QCOMPARE(ta->name(), QStringLiteral("tunerta"));
        QCOMPARE(tuner->name(), QStringLiteral("tuner"));

        const std::tuple<QObject *, const char *, bool> casts[]
            = {{m_loader.instance(), "com.brackel.Plugin.AppPlugin/1.0", true},
               {m_loader.instance(), "WindowInterface", false},
               {dynamic_cast<QObject *>(window), "com.brackel.Plugin.WindowInterface/1.0", true},
               {dynamic_cast<QObject *>(tuner), "com.brackel.Plugin.SourceInterface/1.0", true},
               {dynamic_cast<QObject *>(ta), "SourceInterface", true},
               {dynamic_cast<QObject *>(ta), "tuner::TunerSource", false}};
        for (const auto &[object, name, answers] : casts) {
            QVERIFY(object);
            QCOMPARE(object->qt_metacast(name) != nullptr, answers);
        }
    }

    void bothSourcesStartTheTuner()
    {
        QSignalSpy focus(AudioManager::instance(), &AudioManager::focusRequested);
        m_fakes->clearCalls();
        m_plugin->requestSourceInterface(QStringLiteral("tuner.src"))->start();
        m_plugin->requestSourceInterface(QStringLiteral("ta.src"))->start();
        QCOMPARE(focus.count(), 2);
        QCOMPARE(focus.at(0).at(2).toString(), QStringLiteral("tuner"));
        QCOMPARE(focus.at(0), focus.at(1));
        QTRY_COMPARE(m_fakes->mcu()->callNames(), (QStringList{"updateAudioChannel", "updateAudioChannel"}));

        // The main window answers the audio focus listener's interface id.
        QObject *listener = dynamic_cast<QObject *>(AudioManager::instance()->listener());
        QVERIFY(listener);
        QVERIFY(listener->qt_metacast("com.brackel.nilo.IAudioFocusChangedListener/1.0"));
        QCOMPARE(QString::fromLatin1(listener->metaObject()->className()), QStringLiteral("tuner::MainWindow"));
    }

    void sourceKeysReachTheMainWindow()
    {
        m_fakes->clearCalls();
        KeyEvent press(Qx::KeyPressed, 33);
        KeyEvent release(Qx::KeyShortReleased, 33);
        SourceInterface *ta = m_plugin->requestSourceInterface(QStringLiteral("ta.src"));
        QCOMPARE(ta->keyEvent(&press), false);
        QCOMPARE(ta->keyEvent(&release), true);
        QTRY_COMPARE(m_fakes->radio()->callNames().filter("setband"), QStringList{"setband"});
        QTRY_COMPARE(m_fakes->mcu()->callNames(), QStringList{"triggerBeep"});
        WindowInterface *window = m_plugin->requestWindowInterface(QStringLiteral("tuner.win"));
        QCOMPARE(window->keyEvent(&release), false); // window keys are not the tuner's
    }

    // The host drives the window only through its wrapper: each call reaches
    // the main window's call of the same name, seen by what that one does.
    void windowCallsReachTheMainWindow()
    {
        WindowInterface *window = m_plugin->requestWindowInterface(QStringLiteral("tuner.win"));
        QSignalSpy focus(AudioManager::instance(), &AudioManager::focusRequested);
        const auto observed = [&] {
            m_fakes->settle();
            QWidget *widget = window->mainWidget();
            QString seen = QStringLiteral("%1 focus=%2 mcu=%3 source=%4")
                               .arg(widget ? (widget->isVisible() ? "shown" : "hidden") : "none")
                               .arg(focus.count())
                               .arg(m_fakes->mcu()->callNames().join(QLatin1Char(',')),
                                    m_fakes->source()->callNames().join(QLatin1Char(',')));
            m_fakes->clearCalls();
            focus.clear();
            return seen;
        };
        m_fakes->clearCalls();
        window->onCreate(); // the screen is built and reads the radio's state
        QTRY_VERIFY(m_fakes->radio()->callNames().contains(QStringLiteral("freqBandId")));
        QCOMPARE(observed(), QStringLiteral("hidden focus=0 mcu= source="));
        window->onShow();
        QCOMPARE(observed(), QStringLiteral("shown focus=1 mcu=updateAudioChannel source="));
        window->onEnter();
        window->onExit();
        window->backEvent();
        QCOMPARE(observed(), QStringLiteral("shown focus=0 mcu= source="));
        window->onHide();
        QCOMPARE(observed(), QStringLiteral("hidden focus=0 mcu= source="));
        window->onCreate(); // the stack is kept, and resumes
        window->onShow();
        QCOMPARE(observed(), QStringLiteral("shown focus=1 mcu=updateAudioChannel source="));
        window->setTranslation(QStringLiteral("de"));
        QCOMPARE(Translator::language(), QStringLiteral("de"));
        window->setTranslation(QStringLiteral("en"));
        window->onDestroy();
        QCOMPARE(observed(), QStringLiteral("hidden focus=0 mcu= source=currentWindow,currentWindow,currentWindow"));
    }

private:
    QTemporaryDir m_root;
    std::unique_ptr<FakeServices> m_fakes;
    QPluginLoader m_loader{QStringLiteral(TUNER_PLUGIN_FILE)};
    AppPlugin *m_plugin = nullptr;
};

QTEST_MAIN(tst_Plugin)
#include "tst_plugin.moc"
