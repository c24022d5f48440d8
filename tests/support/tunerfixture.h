#pragma once

#include "fakeservices.h"
#include "teststate.h"

#include <QHash>
#include <QTest>

#include <memory>

// What the tests of the tuner's screens and window share: the three fakes on
// the test's private bus, started once per test binary, a fresh tuner state
// per test, and what the fakes were called with.
class TunerFixture
{
protected:
    TunerFixture()
        : m_fakes(std::make_unique<FakeServices>())
    {
        // Without its fakes no test of the binary means anything.
        if (!m_fakes->start())
            qFatal("the fake services could not claim their names on the test bus");
    }

    void newState(const QString &vehicleKeys = QString()) { m_state = std::make_unique<TestState>(vehicleKeys); }

#ifdef QT_WIDGETS_LIB
    // Shows `widget` and waits until it is on screen.
    template<typename Widget>
    static bool shown(const std::unique_ptr<Widget> &widget)
    {
        widget->show();
        return QTest::qWaitForWindowExposed(widget.get());
    }
#endif

    // Lets start-up traffic arrive and forgets it.
    void forgetCalls()
    {
        m_fakes->settle();
        m_fakes->clearCalls();
    }

    QStringList radioCalls()
    {
        return m_fakes->describedCalls(m_fakes->radio());
    }
    QStringList mcuCalls()
    {
        return m_fakes->describedCalls(m_fakes->mcu());
    }
    // The MCU calls in short, space-separated: ch = updateAudioChannel(1),
    // on/off = updateAudioStatus(7/8), beep/beep1 = triggerBeep(0/1); others in full.
    QString mcuInShort()
    {
        // clang-format off
        static const QHash<QString, QString> shortNames{{"triggerBeep(0)", "beep"}, {"triggerBeep(1)", "beep1"},
                                                        {"updateAudioChannel(1)", "ch"}, {"updateAudioStatus(7)", "on"},
                                                        {"updateAudioStatus(8)", "off"}};
        // clang-format on
        QStringList calls;
        for (const QString &call : mcuCalls())
            calls << shortNames.value(call, call);
        return calls.join(QLatin1Char(' '));
    }

    std::unique_ptr<FakeServices> m_fakes;
    std::unique_ptr<TestState> m_state;
};
