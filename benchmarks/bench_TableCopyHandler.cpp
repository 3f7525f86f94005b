// Compares copying the selected cells of a table with the plain way (listing the selected indexes, sorting them and
// appending their texts), with a bare loop that converts each cell to text and discards it, and with itself on tables
// and selections of other sizes.

#include "Comparison.h"
#include "plainTableText.h"
#include "ui/qt/controls/TableCopyHandler.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QTableView>

#include <memory>

using zelmar::ui::TableCopyHandler;

namespace {

constexpr int columns = 100;

enum class Kind { Double, Integer, Text };

/// A model whose cells are of one kind: doubles with all their digits, as in measurements, integers, or one text.
class Cells : public QAbstractTableModel
{
public:
    Cells(int rows, Kind kind)
        : m_rows(rows)
        , m_kind(kind)
    {
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const int number = index.row() * columns + index.column();
        if (m_kind == Kind::Double)
            return number / 7.0;
        return m_kind == Kind::Integer ? QVariant(number) : QVariant(m_text);
    }

private:
    int m_rows;
    Kind m_kind;
    QString m_text = QStringLiteral("adsorption");
};

/// A table view with a copy handler.
class Table
{
public:
    explicit Table(int rows, Kind kind = Kind::Double)
        : m_model(rows, kind)
        , m_handler(*new TableCopyHandler(m_view))
    {
        m_view.setModel(&m_model);
    }

    QTableView& view() { return m_view; }
    void copy() { m_handler.copyToClipboard(); }

    void copyPlainly() const { QGuiApplication::clipboard()->setText(plainTableText(m_view), QClipboard::Clipboard); }

    /// Converts all cells to text. Returns the sum of the lengths, so that the compiler cannot omit the conversion.
    int visitAllCells() const
    {
        int length = 0;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            for (int column = 0; column < columns; ++column)
                length += m_model.index(row, column).data().toString().size();
        }
        return length;
    }

private:
    Cells m_model;
    QTableView m_view;
    TableCopyHandler& m_handler;
};

std::unique_ptr<Table> selectedTable(int rows, Kind kind = Kind::Double)
{
    auto table = std::make_unique<Table>(rows, kind);
    table->view().selectAll();
    return table;
}

/// Returns a table in which every other cell is selected, each as a range of its own. It is never destroyed, because Qt
/// 6 needs minutes to destroy such a selection.
Table& checkerboard(int ranges)
{
    const int inRow = columns / 2;
    auto* const table = new Table(ranges / inRow);
    QItemSelection selection;
    for (int range = 0; range < ranges; ++range) {
        const int row = range / inRow;
        const QModelIndex cell = table->view().model()->index(row, 2 * (range % inRow) + row % 2);
        selection.append(QItemSelectionRange(cell));
    }
    table->view().selectionModel()->select(selection, QItemSelectionModel::Select);
    return *table;
}

bool hasSameText(Table& table)
{
    QGuiApplication::clipboard()->clear();
    table.copy();
    const QString text = QGuiApplication::clipboard()->text();
    table.copyPlainly();
    return !text.isEmpty() && text == QGuiApplication::clipboard()->text();
}

void compareWithOtherWays(const QByteArray& cells, Kind kind)
{
    const std::unique_ptr<Table> table = selectedTable(10000, kind);
    int length = 0;
    if (!hasSameText(*table))
        std::printf("not the text of the plain way\n");
    compare(
        "1,000,000 " + cells + ", beside the plain way", 15, [&] { table->copy(); }, [&] { table->copyPlainly(); });
    compare(
        "1,000,000 " + cells + ", beside a bare loop", 15, [&] { table->copy(); },
        [&] { length = table->visitAllCells(); });
    if (length == 0)
        std::printf("no texts\n");
}

void compareSizes()
{
    const std::unique_ptr<Table> large = selectedTable(40000);
    const std::unique_ptr<Table> small = selectedTable(10000);
    compare(
        "4,000,000 doubles, beside 1,000,000", 9, [&] { large->copy(); }, [&] { small->copy(); });
}

void compareCheckerboards()
{
    Table& large = checkerboard(40000);
    Table& middle = checkerboard(20000);
    Table& small = checkerboard(10000);
    if (!hasSameText(middle))
        std::printf("not the text of the plain way\n");
    compare(
        "20,000 single ranges, beside 10,000", 51, [&] { middle.copy(); }, [&] { small.copy(); });
    compare(
        "40,000 single ranges, beside 20,000", 51, [&] { large.copy(); }, [&] { middle.copy(); });
    compare(
        "20,000 single ranges, beside the plain way", 51, [&] { middle.copy(); }, [&] { middle.copyPlainly(); });
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    compareWithOtherWays("doubles", Kind::Double);
    compareWithOtherWays("integers", Kind::Integer);
    compareWithOtherWays("texts", Kind::Text);
    compareSizes();
    compareCheckerboards();
    return 0;
}
