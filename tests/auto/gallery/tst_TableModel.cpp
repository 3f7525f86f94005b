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
    void keepsTheRulesOfModels();
    void startsEmpty();
    void showsTheTable();
    void editsCells();
    void ignoresEqualText();
    void refusesOtherPlacesAndRoles();
    void tellsWhenItIsModified();
    void resetsForAnotherDocument();
    void undoesEdits();
    void undoesAClearingAtOnce();
    void forgetsEditsOfAnotherDocument();
    void knowsTheSavedState();
    void alignsNumbersRight();
    void cutsLongTextsOnlyWhereTheyAreDrawn();
    void copesWithAMillionRows();

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

void tst_TableModel::keepsTheRulesOfModels()
{
    TableModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setDocument(m_model->document());
    QVERIFY(model.setData(model.index(0, 0), "new"));
    model.setDocument(nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void tst_TableModel::startsEmpty()
{
    const TableModel model;
    QVERIFY(model.document());
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 0);
    QVERIFY(!model.isModified());
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
}

void tst_TableModel::editsCells()
{
    QSignalSpy changes(m_model.get(), &TableModel::dataChanged);
    const QModelIndex cell = m_model->index(2, 1);
    QVERIFY(m_model->flags(cell) & Qt::ItemIsEditable);
    QVERIFY(m_model->setData(cell, "new"));
    QCOMPARE(cell.data(Qt::DisplayRole).toString(), QString("new"));
    QCOMPARE(cell.data(Qt::EditRole).toString(), QString("new"));
    QCOMPARE(m_model->document()->text(2, 1), QString("new"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex(), cell);
    QCOMPARE(changes[0][1].toModelIndex(), cell);
}

void tst_TableModel::ignoresEqualText()
{
    QSignalSpy changes(m_model.get(), &TableModel::dataChanged);
    QVERIFY(m_model->setData(m_model->index(0, 0), "x"));
    QCOMPARE(changes.size(), 0);
    QVERIFY(!m_model->isModified());
}

void tst_TableModel::refusesOtherPlacesAndRoles()
{
    QVERIFY(!m_model->setData(QModelIndex(), "new"));
    QVERIFY(!m_model->setData(m_model->index(0, 0), "new", Qt::ToolTipRole));
    QVERIFY(!(m_model->flags(QModelIndex()) & Qt::ItemIsEditable));
    QCOMPARE(m_model->index(0, 0).data().toString(), QString("x"));
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

void tst_TableModel::resetsForAnotherDocument()
{
    m_model->setData(m_model->index(0, 0), "1");
    QSignalSpy modified(m_model.get(), &TableModel::modifiedChanged);
    QSignalSpy resets(m_model.get(), &TableModel::modelReset);
    m_model->setDocument(document("a\n1\n"));
    QCOMPARE(resets.size(), 1);
    QCOMPARE(modified.size(), 1);
    QCOMPARE(m_model->rowCount(), 1);
    QCOMPARE(m_model->columnCount(), 1);
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
    m_model->markSaved(m_model->state());
    m_model->setDocument(document("a\n1\n"));
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

void tst_TableModel::alignsNumbersRight()
{
    const auto alignment = [this](int column) { return m_model->index(0, column).data(Qt::TextAlignmentRole).toInt(); };
    QCOMPARE(alignment(0), int(Qt::AlignLeft | Qt::AlignVCenter));
    QCOMPARE(alignment(2), int(Qt::AlignRight | Qt::AlignVCenter));
    QCOMPARE(m_model->columnKind(2), ColumnKind::Number);
}

void tst_TableModel::cutsLongTextsOnlyWhereTheyAreDrawn()
{
    m_model->setDocument(document("a\n" + QByteArray(1000, 'x') + "\n" + QByteArray(1001, 'y') + "\n"));
    const QString longest(1000, 'x');
    const QString tooLong(1001, 'y');
    QCOMPARE(m_model->index(0, 0).data().toString(), longest);
    QCOMPARE(m_model->index(1, 0).data().toString(), tooLong);
    QCOMPARE(m_model->index(1, 0).data(Qt::EditRole).toString(), tooLong);
    QCOMPARE(shownText(longest), longest);
    QCOMPARE(shownText(tooLong), QString(1000, 'y') + QChar(0x2026));
}

void tst_TableModel::copesWithAMillionRows()
{
    QByteArray csv = "a,b\n";
    for (int i = 0; i < 1000000; ++i)
        csv += "text," + QByteArray::number(i) + '\n';
    m_model->setDocument(document(csv));
    QCOMPARE(m_model->rowCount(), 1000000);
    // A model that searched for the row would need hours for this.
    for (int i = 0; i < 1000000; i += 3)
        QCOMPARE(m_model->index(999999 - i, 1).data().toInt(), 999999 - i);
}

QTEST_GUILESS_MAIN(tst_TableModel)
#include "tst_TableModel.moc"
