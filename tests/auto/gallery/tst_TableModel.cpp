#include "TableModel.h"

#include "TableTestSupport.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace gallery;

class tst_TableModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsEditsOverTheFile();
    void findsColumnKinds();
    void keepsTheRulesOfModels();
    void showsTheTable();
    void editsCells();
    void tellsWhenItIsModified();
    void undoesEdits();
    void undoesAClearingAtOnce();
    void forgetsEditsOfAnotherDocument();
    void knowsTheSavedState();
    void cutsLongTextsOnlyWhereTheyAreDrawn();

private:
    std::shared_ptr<TableDocument> document(const QByteArray& csv) { return m_folder.load("t.csv", csv).document; }

    TestFolder m_folder;
    std::unique_ptr<TableModel> m_model;
};

void tst_TableModel::init()
{
    m_model = std::make_unique<TableModel>();
    m_model->setDocument(document("name,,number\nx,y,1.5\nz,,2\nw\n"));
}

void tst_TableModel::keepsEditsOverTheFile()
{
    TableDocument document = *this->document("a,b,c\n1,2,3\n4\n");
    document.setText(0, 1, "two");
    document.setText(1, 2, "six");
    const TableDocument copy = document;
    document.setText(0, 1, QString(QChar(0xFEFF)) + QChar(0xD83C) + "x");
    document.setText(1, 2, "");
    QCOMPARE(textsOf(copy), (Texts{{"a", "b", "c"}, {"1", "two", "3"}, {"4", "", "six"}}));
    QCOMPARE(document.text(1, 2), QString());
    const QString replaced = document.text(0, 1);
    QVERIFY(replaced.isValidUtf16() && replaced.size() == 3 && replaced[0] == QChar(0xFEFF) && replaced[2] == 'x');
}

void tst_TableModel::findsColumnKinds()
{
    const QByteArray farBehind = QByteArray("1\n").repeated(9999) + QByteArray("x\n").repeated(9999);
    for (const char* cells : {"1\n-2\n+3\n", "1e-3\n2.5E+7\n.5\n", "\"1\"\n\n2\n"})
        QCOMPARE(document(QByteArray("a\n") + cells)->columnKind(0), ColumnKind::Number);
    for (const QByteArray& cells : {QByteArray("\n\n"), QByteArray(), QByteArray("1\n2\nthree\n"),
                                    QByteArray("one\n2\n3\n"), QByteArray("\"1,5\"\n"), farBehind})
        QCOMPARE(document("a\n" + cells)->columnKind(0), ColumnKind::Text);
}

void tst_TableModel::keepsTheRulesOfModels()
{
    TableModel model;
    QVERIFY(model.document() && model.rowCount() == 0 && !model.isModified());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setDocument(m_model->document());
    QVERIFY(model.setData(model.index(0, 0), "new"));
    model.setDocument(nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void tst_TableModel::showsTheTable()
{
    QCOMPARE(m_model->rowCount(), 3);
    QCOMPARE(m_model->columnCount(), 3);
    QCOMPARE(m_model->rowCount(m_model->index(0, 0)), 0);
    QCOMPARE(m_model->columnCount(m_model->index(0, 0)), 0);
    QCOMPARE(m_model->index(0, 2).data().toString(), QString("1.5"));
    QCOMPARE(m_model->index(2, 2).data().toString(), QString());
    QCOMPARE(m_model->headerData(0, Qt::Horizontal).toString(), QString("name"));
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QString("2"));
    QCOMPARE(m_model->headerData(2, Qt::Vertical).toString(), QString("3"));
    QVERIFY(!m_model->data(QModelIndex()).isValid());
    QCOMPARE(m_model->index(0, 0).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
    QCOMPARE(m_model->index(0, 2).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
}

void tst_TableModel::editsCells()
{
    QSignalSpy changes(m_model.get(), &TableModel::dataChanged);
    const QModelIndex cell = m_model->index(2, 1);
    QVERIFY(m_model->flags(cell) & Qt::ItemIsEditable);
    QVERIFY(m_model->setData(cell, "new"));
    QCOMPARE(cell.data(Qt::EditRole).toString(), QString("new"));
    QCOMPARE(m_model->document()->text(2, 1), QString("new"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex(), cell);
    QCOMPARE(changes[0][1].toModelIndex(), cell);
    QVERIFY(m_model->setData(cell, "new"));
    QVERIFY(!m_model->setData(cell, "newer", Qt::ToolTipRole));
    QVERIFY(!m_model->setData(QModelIndex(), "new"));
    QVERIFY(!(m_model->flags(QModelIndex()) & Qt::ItemIsEditable));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_model->edits().count(), 1);
}

void tst_TableModel::tellsWhenItIsModified()
{
    QSignalSpy modified(m_model.get(), &TableModel::modifiedChanged);
    m_model->setData(m_model->index(0, 0), "1");
    m_model->setData(m_model->index(0, 0), "2");
    QVERIFY(m_model->isModified());
    QCOMPARE(modified.size(), 1);
    QCOMPARE(modified[0][0].toBool(), true);
    m_model->markSaved(m_model->state());
    m_model->markSaved(m_model->state());
    QVERIFY(!m_model->isModified());
    QCOMPARE(modified.size(), 2);
    QCOMPARE(modified[1][0].toBool(), false);
}

void tst_TableModel::undoesEdits()
{
    QVERIFY(!m_model->undo().isValid());
    m_model->setData(m_model->index(0, 0), "1");
    m_model->setData(m_model->index(2, 1), "2");
    QCOMPARE(m_model->edits().count(), 2);
    QCOMPARE(m_model->edits().undoText(), QString("edit in row 3"));

    const QSignalSpy changes(m_model.get(), &TableModel::dataChanged);
    QCOMPARE(m_model->undo(), m_model->index(2, 1));
    QCOMPARE(m_model->index(2, 1).data().toString(), QString());
    QCOMPARE(changes.last()[0].toModelIndex(), m_model->index(2, 1));
    QCOMPARE(m_model->undo(), m_model->index(0, 0));
    QCOMPARE(m_model->index(0, 0).data().toString(), QString("x"));
    QVERIFY(!m_model->undo().isValid());

    QCOMPARE(m_model->redo(), m_model->index(0, 0));
    QCOMPARE(m_model->redo(), m_model->index(2, 1));
    QVERIFY(!m_model->redo().isValid());
    QCOMPARE(m_model->index(0, 0).data().toString(), QString("1"));
    QCOMPARE(m_model->index(2, 1).data().toString(), QString("2"));
}

void tst_TableModel::undoesAClearingAtOnce()
{
    const QSignalSpy changes(m_model.get(), &TableModel::dataChanged);
    m_model->clear({m_model->index(2, 2)}); // which is empty
    QCOMPARE(m_model->edits().count(), 0);
    m_model->clear({m_model->index(1, 0), m_model->index(0, 1), m_model->index(1, 1)});
    QCOMPARE(m_model->edits().count(), 1);
    QCOMPARE(m_model->edits().undoText(), QString("clearing of 2 cells"));
    QCOMPARE(m_model->index(1, 0).data().toString(), QString());
    QCOMPARE(m_model->index(0, 1).data().toString(), QString());
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex(), m_model->index(0, 0));
    QCOMPARE(changes[0][1].toModelIndex(), m_model->index(1, 1));
    QCOMPARE(m_model->undo(), m_model->index(1, 0));
    QCOMPARE(m_model->index(1, 0).data().toString(), QString("z"));
    QCOMPARE(m_model->index(0, 1).data().toString(), QString("y"));
}

void tst_TableModel::forgetsEditsOfAnotherDocument()
{
    m_model->setData(m_model->index(0, 0), "1");
    const QSignalSpy modified(m_model.get(), &TableModel::modifiedChanged);
    const QSignalSpy resets(m_model.get(), &TableModel::modelReset);
    m_model->setDocument(document("a\n1\n"));
    QCOMPARE(resets.size(), 1);
    QCOMPARE(modified.size(), 1);
    QCOMPARE(m_model->rowCount(), 1);
    QCOMPARE(m_model->edits().count(), 0);
    QVERIFY(!m_model->isModified());
    QVERIFY(!m_model->undo().isValid());
}

void tst_TableModel::knowsTheSavedState()
{
    const QModelIndex cell = m_model->index(0, 0);
    m_model->setData(cell, "1");
    const int saved = m_model->state();
    m_model->setData(cell, "2");
    m_model->markSaved(saved); // while which the edit to 2 was made
    QVERIFY(m_model->isModified());
    m_model->undo();
    QVERIFY(!m_model->isModified());
    m_model->undo();
    QVERIFY(m_model->isModified());
    m_model->redo();
    QVERIFY(!m_model->isModified());

    // The saved state cannot be reached any more, even if there are as many edits.
    m_model->undo();
    m_model->setData(cell, "3");
    QVERIFY(m_model->isModified());
    m_model->undo();
    QVERIFY(m_model->isModified());
}

void tst_TableModel::cutsLongTextsOnlyWhereTheyAreDrawn()
{
    const QString tooLong(1001, 'y');
    m_model->setDocument(document("a\n" + tooLong.toUtf8()));
    QCOMPARE(m_model->index(0, 0).data().toString(), tooLong);
    QCOMPARE(shownText(tooLong), QString(1000, 'y') + QChar(0x2026));
    QCOMPARE(shownText(QString(1000, 'y')), QString(1000, 'y'));
}

QTEST_GUILESS_MAIN(tst_TableModel)
#include "tst_TableModel.moc"
