#include "testing/FileDialogScript.h"

#include "ScriptedApplication.h"
#include "TestHome.h"

#include <QApplication>

#define CATCH_CONFIG_RUNNER
#include <catch2/catch.hpp>

using zelmar::testing::FileDialogScript;
using zelmar::testing::ShownFileDialog;

TEST_CASE("A script answers in Catch2")
{
    FileDialogScript script;
    script.accept("run1.csv", "Tables");
    CHECK(scriptedApplication::launch(scriptedApplication::root(), false).accepted);
    CHECK(script.dialogs().at(0).caption.toStdString() == "Open run");
    CHECK(script.verify().toStdString() == "");
}

TEST_CASE("Catch2 prints the records")
{
    ShownFileDialog dialog;
    dialog.caption = "Open run";
    CHECK(Catch::Detail::stringify(dialog).find("open dialog \"Open run\"") != std::string::npos);
}

TEST_CASE("A failure of a script fails the test", "[!shouldfail]")
{
    FileDialogScript script;
    script.cancel();
}

int main(int argc, char* argv[])
{
    const TestHome home;
    const QApplication application(argc, argv);
    FileDialogScript::setFailureHandler([](const QString& text) { FAIL_CHECK(text.toStdString()); });
    return Catch::Session().run(argc, argv);
}
