#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "Keyboard.h"

#include <QAbstractButton>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>

namespace gallery {

namespace {

/// A user of the page of copying.
class TableCopyTour
{
public:
    TableCopyTour(GalleryPage& page, Tour& tour)
        : m_page(page)
        , m_tour(tour)
        , m_view(*page.findChild<QTableView*>())
        , m_text(widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Copied text")))
    {
    }

    void run();

private:
    void press(const QString& button) { buttonOnPage(m_page, button).click(); }
    void select(const QStringList& cells);
    void copy(const QString& expected);
    void copyMillion();
    [[nodiscard]] QString size() const;

    GalleryPage& m_page;
    Tour& m_tour;
    QTableView& m_view;
    const QPlainTextEdit& m_text;
};

void TableCopyTour::run()
{
    takeKeyboardFocus(m_view);
    select({QStringLiteral("B2"), QStringLiteral("A1"), QStringLiteral("B1")});
    copy(QStringLiteral("A1\tB1\nB2"));
    copyMillion();

    press(QStringLiteral("Select all"));
    press(QStringLiteral("Copy"));
    m_tour.log(QStringLiteral("copied: ") + size());
    m_tour.expect(m_text.toPlainText().contains(QStringLiteral("A2\tB2\tD2\tE2\n")),
                  QStringLiteral("disabled cells are not copied"));
    select({QStringLiteral("D6"), QStringLiteral("A1"), QStringLiteral("C1"), QStringLiteral("A3"),
            QStringLiteral("B3"), QStringLiteral("D3"), QStringLiteral("E3")});
    copy(QStringLiteral("A1\tC1\nA3\tD3\tE3\nD6"));
    m_tour.takePicture();
}

void TableCopyTour::select(const QStringList& cells)
{
    m_view.clearSelection();
    for (const QString& cell : cells) {
        const QModelIndex index = m_view.model()->index(cell.mid(1).toInt() - 1, cell[0].unicode() - 'A');
        m_view.selectionModel()->select(index, QItemSelectionModel::Select);
    }
}

void TableCopyTour::copy(const QString& expected)
{
    takeKeyboardFocus(m_view);
    QTest::keyClick(&m_view, Qt::Key_C, Qt::ControlModifier);
    QString shown = m_text.toPlainText();
    m_tour.expect(shown == expected, QStringLiteral("selected cells are copied in the order of the table"));
    shown.replace(QLatin1Char('\t'), QStringLiteral(", ")).replace(QLatin1Char('\n'), QStringLiteral("; "));
    m_tour.log(QStringLiteral("copied: ") + shown);
}

void TableCopyTour::copyMillion()
{
    press(QStringLiteral("A million cells"));
    takeKeyboardFocus(m_view);
    QTest::keyClick(&m_view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&m_view, Qt::Key_C, Qt::ControlModifier);
    m_tour.log(QStringLiteral("copied a million cells: ") + size());
    press(QStringLiteral("A million cells"));
}

QString TableCopyTour::size() const
{
    return m_page.findChild<QLabel*>(QStringLiteral("size"))->text();
}

} // namespace

void tourTableCopy(GalleryPage& page, Tour& tour)
{
    TableCopyTour(page, tour).run();
}

} // namespace gallery
