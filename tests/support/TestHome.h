#pragma once

#include <QTemporaryDir>

/// A home of its own for one test program: home, configuration, cache, data and runtime folders that no other program
/// sees, C.UTF-8 as locale, and the names under which settings are kept. Make it before the application object.
///
/// A program that is started by the test, with the environment that this object has made, shares its home.
class TestHome
{
public:
    TestHome();

private:
    QTemporaryDir m_folder;
};

/// The main function of a test of widgets.
#define UI_TEST_MAIN(TestClass)                                                                                        \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        const TestHome home;                                                                                           \
        QApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

/// The main function of a test that needs no screen.
#define CORE_TEST_MAIN(TestClass)                                                                                      \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        const TestHome home;                                                                                           \
        QCoreApplication application(argc, argv);                                                                      \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
