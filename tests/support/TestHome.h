#pragma once

#include <QTemporaryDir>

/// A private environment for one test program: home, configuration, cache, data and runtime folders that no other
/// program uses, the locale C.UTF-8, and the organisation and application names of the settings. Create it before the
/// application object.
///
/// A process that the test starts inherits the environment and shares the folders.
class TestHome
{
public:
    TestHome();

private:
    QTemporaryDir m_folder;
};

/// Defines the main function of a test with widgets.
#define UI_TEST_MAIN(TestClass)                                                                                        \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        const TestHome home;                                                                                           \
        QApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

/// Defines the main function of a test that needs no screen.
#define CORE_TEST_MAIN(TestClass)                                                                                      \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        const TestHome home;                                                                                           \
        QCoreApplication application(argc, argv);                                                                      \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
