#include "ui/qt/dialogs/qtdialog/nameProblem_p.h"

#include "DialogFolders.h"
#include "TestHome.h"

#include <QtTest>

using namespace zelmar::internal;
using Kind = NameProblem::Kind;
Q_DECLARE_METATYPE(NameProblem::Kind)

class tst_nameProblem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void problems_data();
    void problems();
    void explanations();
};

void tst_nameProblem::problems_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("folder");

    const QString longest(255, QLatin1Char('x'));
    QTest::newRow("a new name") << "new.dat" << Kind::None << "";
    QTest::newRow("an existing file") << "file" << Kind::None << "";
    QTest::newRow("in a folder") << "folder/new.dat" << Kind::None << "";
    QTest::newRow("the longest name") << longest << Kind::None << "";
    QTest::newRow("one letter longer") << longest + 'x' << Kind::TooLong << "";
    QTest::newRow("too long, in a folder") << "folder/" + longest + 'x' << Kind::TooLong << "";
    QTest::newRow("missing folder") << "missing/new.dat" << Kind::MissingFolder << "missing";
    QTest::newRow("several missing folders") << "folder/a/b/c/new.dat" << Kind::MissingFolder << "folder/a";
    QTest::newRow("a file as folder") << "file/new.dat" << Kind::NotAFolder << "file";
    QTest::newRow("a file as folder above") << "file/a/b/new.dat" << Kind::NotAFolder << "file";
#ifdef Q_OS_UNIX
    QTest::newRow("as many bytes as fit") << QString(127, QChar(0xe4)) + 'x' << Kind::None << "";
    QTest::newRow("more bytes than letters") << QString(128, QChar(0xe4)) << Kind::TooLong << "";
#endif
}

void tst_nameProblem::problems()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    DialogFolders folders;
    folders.addFile(QStringLiteral("file"));
    folders.addFolder(QStringLiteral("folder"));
    const NameProblem problem = problemOfSavingTo(folders.path(name));
    QTEST(problem.kind, "kind");
    QCOMPARE(problem.folder, folder.isEmpty() ? QString() : folders.path(folder));
    QCOMPARE(problem.limit, problem.kind == Kind::TooLong ? 255 : 0);
}

void tst_nameProblem::explanations()
{
    const QString folder = QStringLiteral("/a/%1<b>");
    const QString shown = QDir::toNativeSeparators(folder);
    QCOMPARE(explanationOf({}), QString());
#ifdef Q_OS_UNIX
    QCOMPARE(explanationOf({Kind::TooLong, {}, 255}),
             QStringLiteral("The name is longer than the file system allows (255 bytes)."));
#endif
    QCOMPARE(explanationOf({Kind::MissingFolder, folder, 0}),
             QStringLiteral("The folder ") + shown + QStringLiteral(" does not exist."));
    QCOMPARE(explanationOf({Kind::NotAFolder, folder, 0}), shown + QStringLiteral(" is not a folder."));
}

CORE_TEST_MAIN(tst_nameProblem)
#include "tst_nameProblem.moc"
