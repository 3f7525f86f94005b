#include "ui/qt/dialogs/windows/builtin/dialogOptions_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

Q_DECLARE_METATYPE(QFileDialog::FileMode)
Q_DECLARE_METATYPE(QFileDialog::Options)

class tst_dialogOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void meaning_data();
    void meaning();
};

void tst_dialogOptions::defaults()
{
    QCOMPARE(defaultOptions(DialogKind::Open), FILEOPENDIALOGOPTIONS(FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST));
    QCOMPARE(defaultOptions(DialogKind::Save),
             FILEOPENDIALOGOPTIONS(FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST | FOS_NOREADONLYRETURN));
}

void tst_dialogOptions::meaning_data()
{
    QTest::addColumn<uint>("options");
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::addColumn<QFileDialog::Options>("expected");

    using Options = QFileDialog::Options;
    const Options plain = QFileDialog::DontConfirmOverwrite;
    // clang-format off
    QTest::newRow("nothing") << 0U << QFileDialog::AnyFile << plain;
    QTest::newRow("existing file") << uint(FOS_FILEMUSTEXIST) << QFileDialog::ExistingFile << plain;
    QTest::newRow("existing folder means nothing") << uint(FOS_PATHMUSTEXIST) << QFileDialog::AnyFile << plain;
    QTest::newRow("several") << uint(FOS_ALLOWMULTISELECT) << QFileDialog::ExistingFiles << plain;
    QTest::newRow("several existing ones") << uint(FOS_ALLOWMULTISELECT | FOS_FILEMUSTEXIST) << QFileDialog::ExistingFiles << plain;
    QTest::newRow("folder") << uint(FOS_PICKFOLDERS) << QFileDialog::Directory << (plain | QFileDialog::ShowDirsOnly);
    QTest::newRow("folder goes before several") << uint(FOS_PICKFOLDERS | FOS_ALLOWMULTISELECT) << QFileDialog::Directory << (plain | QFileDialog::ShowDirsOnly);
    QTest::newRow("question before overwriting") << uint(FOS_OVERWRITEPROMPT) << QFileDialog::AnyFile << Options();
    QTest::newRow("unknown bits mean nothing") << 0x40000000U << QFileDialog::AnyFile << plain;
    // clang-format on
}

void tst_dialogOptions::meaning()
{
    QFETCH(uint, options);
    QFETCH(QFileDialog::FileMode, mode);
    QFETCH(QFileDialog::Options, expected);
    QCOMPARE(fileModeOf(options), mode);
    QCOMPARE(dialogOptionsOf(options), expected);
}

CORE_TEST_MAIN(tst_dialogOptions)
#include "tst_dialogOptions.moc"
