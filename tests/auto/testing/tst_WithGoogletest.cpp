#include "testing/FileDialogScript.h"

#include "ScriptedApplication.h"
#include "TestHome.h"

#include <QApplication>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using zelmar::testing::FileDialogScript;
using zelmar::testing::ShownFileDialog;

TEST(FileDialogScript, answersInGoogletest)
{
    FileDialogScript script;
    script.accept("run1.csv", "Tables");
    EXPECT_TRUE(scriptedApplication::launch(scriptedApplication::root(), false).accepted);
    EXPECT_EQ(script.dialogs().at(0).caption.toStdString(), "Open run");
    EXPECT_EQ(script.verify().toStdString(), "");
}

TEST(FileDialogScript, printsItsRecords)
{
    ShownFileDialog dialog;
    dialog.caption = "Open run";
    EXPECT_NE(::testing::PrintToString(dialog).find("open dialog \"Open run\""), std::string::npos);
}

TEST(FileDialogScript, failsTheTest)
{
    EXPECT_NONFATAL_FAILURE(
        {
            FileDialogScript script;
            script.cancel();
        },
        "These steps are left");
}

int main(int argc, char* argv[])
{
    const TestHome home;
    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    FileDialogScript::setFailureHandler([](const QString& text) { ADD_FAILURE() << text.toStdString(); });
    return RUN_ALL_TESTS();
}
