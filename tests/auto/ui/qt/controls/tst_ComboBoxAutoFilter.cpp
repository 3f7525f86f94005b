#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "TestHome.h"
#include "modelTexts.h"

#include <QAccessible>
#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMetaMethod>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTableView>
#include <QTest>

#include <memory>
#include <type_traits>

using zelmar::ui::ComboBoxAutoFilter;

static_assert(!std::is_default_constructible<ComboBoxAutoFilter>::value, "the parent is always named");
static_assert(!std::is_convertible<QWidget*, ComboBoxAutoFilter>::value, "a parent is no combo box");
static_assert(std::has_virtual_destructor<ComboBoxAutoFilter>::value, "widgets are deleted through their bases");

namespace {

const QStringList colours = {"Red", "Light Blue", "Blue", "Value"};

void setUp(ComboBoxAutoFilter& box, Qt::CaseSensitivity caseSensitivity = Qt::CaseInsensitive)
{
    box.setCompleterAttributes(true, QCompleter::PopupCompletion, caseSensitivity, Qt::ElideMiddle, Qt::MatchExactly);
}

std::unique_ptr<ComboBoxAutoFilter> makeBox(const QStringList& items = colours)
{
    auto box = std::make_unique<ComboBoxAutoFilter>(nullptr);
    box->setList(items);
    setUp(*box);
    return box;
}

QStringList completions(const ComboBoxAutoFilter& box, const QString& prefix)
{
    return completionsOf(*box.completer(), prefix);
}

/// Forwards the combo box's rows and counts how often they are read.
class CountedList : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++reads;
        return QStringListModel::data(index, role);
    }
    mutable int reads = 0;
};

QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

QString accessibleName(QWidget& widget)
{
    return accessible(widget).text(QAccessible::Name);
}

} // namespace

class tst_ComboBoxAutoFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutACompleter();
    void hasItsSignalsAndSlotsInOrder();
    void appendsToTheList();
    void setsUpTextFieldAndCompleter();
    void becomesEditableInAnyCase();
    void offersWhatContainsTheText();
    void keepsFormerCompleters();
    void goesBeforeOrAfterItsCompleter();
    void validates_data();
    void validates();
    void validatesWithoutATextField();
    void validatesLikeFindText();
    void selectsText();
    void takesAValue();
    void opensAtTheFirstItemThatContainsTheText();
    void opensWithoutATextField();
    void worksWithAnotherView();
    void followsAnotherModel();
    void followsAnotherModelColumn();
    void survivesItsModel();
    void staysOutOfTheRestOfATree();
    void measuresAFewOfManyItems();
    void opensAMillionItemsAtOneOfTheLast();
    void isNamedForAssistiveTechnology();
    void isNamedInADisabledParent();
    void isNamedByItsLabelForAssistiveTechnology();
    void keepsTheNameOfItsField();
    void opensItsListForAssistiveTechnology();
    void isAccessibleWithoutATextField();
};

void tst_ComboBoxAutoFilter::startsWithoutACompleter()
{
    ComboBoxAutoFilter box(nullptr);
    QVERIFY(!box.isEditable());
    QVERIFY(!box.completer());
    QVERIFY(qobject_cast<QListView*>(box.view()));
    QVERIFY(!qobject_cast<QListView*>(box.view())->uniformItemSizes());
    QCOMPARE(box.currentIndex(), -1);
    QVERIFY(!box.validateEntry());
    box.setSelectedText(QStringLiteral("Blue"));
    box.setFromValue(1);
    QCOMPARE(box.currentIndex(), -1);
}

void tst_ComboBoxAutoFilter::hasItsSignalsAndSlotsInOrder()
{
    QList<QByteArray> methods;
    const QMetaObject& meta = ComboBoxAutoFilter::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods +=
            meta.method(i).methodSignature() + (meta.method(i).access() == QMetaMethod::Private ? " private" : "");
    QCOMPARE(methods,
             (QList<QByteArray>{"selectionComplete()", "editingCanceled()", "onEditingFinished() private",
                                "onEditingCanceled() private", "onItemClicked(QModelIndex) private",
                                "onItemActivated(int) private", "onCurrentIndexChanged(QModelIndex) private"}));

    const ComboBoxAutoFilter box(nullptr);
    const QMetaObject& list = *box.view()->metaObject();
    QList<QByteArray> listMethods;
    for (int i = list.methodOffset(); i < list.methodCount(); ++i)
        listMethods += list.method(i).methodSignature();
    QCOMPARE(listMethods,
             (QList<QByteArray>{"editingFinished()", "editingCanceled()", "currentIndexChanged(QModelIndex)"}));
}

void tst_ComboBoxAutoFilter::appendsToTheList()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList({"Red"});
    box.setList({"Green", "Red"});
    QCOMPARE(box.count(), 3);
    QCOMPARE(box.itemText(1), QStringLiteral("Green"));
}

void tst_ComboBoxAutoFilter::setsUpTextFieldAndCompleter()
{
    QStringListModel model(colours);
    ComboBoxAutoFilter box(nullptr);
    box.setListModel(&model, true, QCompleter::PopupCompletion, Qt::CaseSensitive, Qt::ElideMiddle, Qt::MatchExactly);
    QCOMPARE(box.model(), &model);
    QVERIFY(box.lineEdit());
    QCOMPARE(box.insertPolicy(), QComboBox::NoInsert);
    QVERIFY(qobject_cast<QListView*>(box.view())->uniformItemSizes());
    QVERIFY(box.completer());
    QCOMPARE(box.completer()->parent(), &box);
    QCOMPARE(box.lineEdit()->completer(), box.completer());
    QCOMPARE(box.completer()->completionMode(), QCompleter::PopupCompletion);
    QCOMPARE(box.completer()->caseSensitivity(), Qt::CaseSensitive);
    QCOMPARE(box.completer()->popup()->textElideMode(), Qt::ElideMiddle);

    box.setCompleterAttributes(true, QCompleter::InlineCompletion, Qt::CaseInsensitive, Qt::ElideLeft,
                               Qt::MatchExactly);
    QCOMPARE(box.completer()->completionMode(), QCompleter::InlineCompletion);
    QVERIFY(!box.completer()->popup());
}

void tst_ComboBoxAutoFilter::becomesEditableInAnyCase()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(colours);
    box.setCompleterAttributes(false, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                               Qt::MatchExactly);
    QVERIFY(box.isEditable());
    QVERIFY(box.completer());
}

void tst_ComboBoxAutoFilter::offersWhatContainsTheText()
{
    const auto box = makeBox();
    QCOMPARE(completions(*box, QStringLiteral("lue")), (QStringList{"Light Blue", "Blue", "Value"}));
    QCOMPARE(completions(*box, QStringLiteral("BLUE")), (QStringList{"Light Blue", "Blue"}));
    setUp(*box, Qt::CaseSensitive);
    QCOMPARE(completions(*box, QStringLiteral("BLUE")), QStringList());
    QCOMPARE(completions(*box, QStringLiteral("Blu")), (QStringList{"Light Blue", "Blue"}));
}

void tst_ComboBoxAutoFilter::keepsFormerCompleters()
{
    auto box = makeBox();
    const QPointer<QCompleter> first = box->completer();
    setUp(*box);
    const QPointer<QCompleter> second = box->completer();
    QVERIFY(first != second);
    QCOMPARE(box->findChildren<QCompleter*>(QString(), Qt::FindDirectChildrenOnly),
             (QList<QCompleter*>{first.data(), second.data()}));
    box.reset();
    QVERIFY(!second);
}

void tst_ComboBoxAutoFilter::goesBeforeOrAfterItsCompleter()
{
    const auto box = makeBox();
    delete box->completer();
    QVERIFY(box->validateEntry());
    box->showPopup();
    QTest::keyClick(box.get(), Qt::Key_A);
}

void tst_ComboBoxAutoFilter::validates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<int>("index");

    QTest::newRow("an item") << "Red" << true << 0;
    QTest::newRow("in the middle, in any case") << "ALU" << true << 3;
    QTest::newRow("the first that contains it, not the one that is it") << "Blue" << true << 1;
    QTest::newRow("nothing is in every item") << "" << true << 0;
    QTest::newRow("in none") << "green" << false << 2;
    QTest::newRow("longer than any") << "Light Blue and more" << false << 2;
}

void tst_ComboBoxAutoFilter::validates()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(int, index);

    const auto box = makeBox();
    setUp(*box, Qt::CaseSensitive); // the case sensitivity affects completions only
    box->setCurrentIndex(2);
    box->lineEdit()->setText(text);
    QCOMPARE(box->validateEntry(), valid);
    QCOMPARE(box->currentIndex(), index);
}

void tst_ComboBoxAutoFilter::validatesWithoutATextField()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(colours);
    box.setCurrentIndex(2);
    QVERIFY(box.validateEntry());
    QCOMPARE(box.currentIndex(), 2);
}

void tst_ComboBoxAutoFilter::validatesLikeFindText()
{
    QStringList names;
    for (int i = 0; i < 500; ++i)
        names += QStringLiteral("Name %1 of ß and ſ").arg((i * 7919) % 500);
    const auto box = makeBox(names);
    for (const QString text : {"17", "NAME 3", "9 of", "9 OF S", "none", "499", " "}) {
        const int expected = box->findText(text, Qt::MatchContains);
        box->setCurrentIndex(5);
        box->lineEdit()->setText(text);
        QCOMPARE(box->validateEntry(), expected >= 0);
        QCOMPARE(box->currentIndex(), expected >= 0 ? expected : 5);
        box->setItemText(qMax(expected, 0), QStringLiteral("another")); // the next search must find the change
    }
}

void tst_ComboBoxAutoFilter::selectsText()
{
    const auto box = makeBox();
    box->setSelectedText(QStringLiteral("Blue"));
    QCOMPARE(box->currentIndex(), 2);
    QCOMPARE(box->lineEdit()->selectedText(), QStringLiteral("Blue"));

    // Without an exactly equal item, as many code units of the present text are selected.
    box->setSelectedText(QStringLiteral("val"));
    QCOMPARE(box->currentIndex(), 2);
    QCOMPARE(box->lineEdit()->selectedText(), QStringLiteral("Blu"));
}

void tst_ComboBoxAutoFilter::takesAValue()
{
    ComboBoxAutoFilter box(nullptr);
    for (int i = 0; i < 4; ++i)
        box.addItem(colours.at(i), QStringLiteral("code %1").arg(i));
    setUp(box);
    const QSignalSpy changes(&box, SIGNAL(currentIndexChanged(int)));
    const QSignalSpy completed(&box, SIGNAL(selectionComplete()));
    box.setFromValue(QStringLiteral("code 2"));
    QCOMPARE(box.currentIndex(), 2);
    QCOMPARE(changes.count(), 1);
    box.lineEdit()->setText(QStringLiteral("typed"));
    box.setFromValue(QStringLiteral("code 2"));
    box.setFromValue(QStringLiteral("CODE 1"));
    box.setFromValue(QStringLiteral("code"));
    box.setFromValue(QVariant());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(box.lineEdit()->text(), QStringLiteral("typed"));
    QCOMPARE(completed.count(), 0);
}

void tst_ComboBoxAutoFilter::opensAtTheFirstItemThatContainsTheText()
{
    const auto box = makeBox();
    box->show();
    box->lineEdit()->setText(QStringLiteral("lu"));
    box->showPopup();
    QTRY_VERIFY(box->view()->isVisible());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(box->view()->currentIndex().row(), 1);
    box->hidePopup();

    box->lineEdit()->setText(QStringLiteral("none"));
    box->showPopup();
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(box->lineEdit()->text(), QStringLiteral("none"));
    box->hidePopup();
}

void tst_ComboBoxAutoFilter::opensWithoutATextField()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(colours);
    box.setCurrentIndex(2);
    box.show();
    box.showPopup();
    QTRY_VERIFY(box.view()->isVisible());
    QCOMPARE(box.currentIndex(), 2);
    box.hidePopup();
}

void tst_ComboBoxAutoFilter::worksWithAnotherView()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(colours);
    auto* table = new QTableView;
    box.setView(table);
    setUp(box);
    box.show();
    box.lineEdit()->setText(QStringLiteral("alu"));
    box.showPopup();
    QTRY_VERIFY(table->isVisible());
    QCOMPARE(box.currentIndex(), 3);
    box.hidePopup();
}

void tst_ComboBoxAutoFilter::followsAnotherModel()
{
    const auto box = makeBox();
    QStringListModel other({"Steel Blue", "Gold"});
    box->setModel(&other);
    QTest::keyClick(box.get(), Qt::Key_Home);
    QCOMPARE(completions(*box, QStringLiteral("blu")), (QStringList{"Steel Blue"}));
    box->lineEdit()->setText(QStringLiteral("gold"));
    QVERIFY(box->validateEntry());
    QCOMPARE(box->currentIndex(), 1);
    other.setStringList({"Grey", "Old Gold"});
    QCOMPARE(completions(*box, QStringLiteral("old")), (QStringList{"Old Gold"}));
}

void tst_ComboBoxAutoFilter::followsAnotherModelColumn()
{
    QStandardItemModel items(2, 2);
    for (int row = 0; row < 2; ++row) {
        items.setItem(row, 0, new QStandardItem(QStringLiteral("Key %1").arg(row)));
        items.setItem(row, 1, new QStandardItem(colours.at(row)));
    }
    ComboBoxAutoFilter box(nullptr);
    box.setModelColumn(1);
    box.setListModel(&items, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight, Qt::MatchContains);
    QCOMPARE(completions(box, QStringLiteral("blue")), (QStringList{"Light Blue"}));
    box.lineEdit()->setText(QStringLiteral("blue"));
    QVERIFY(box.validateEntry());
    QCOMPARE(box.currentIndex(), 1);
    box.lineEdit()->setText(QStringLiteral("key"));
    QVERIFY(!box.validateEntry());

    box.setModelColumn(0);
    QTest::keyClick(&box, Qt::Key_Home);
    QCOMPARE(completions(box, QStringLiteral("y 1")), (QStringList{"Key 1"}));
}

void tst_ComboBoxAutoFilter::survivesItsModel()
{
    auto model = std::make_unique<QStringListModel>(colours);
    ComboBoxAutoFilter box(nullptr);
    box.setListModel(model.get(), true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                     Qt::MatchContains);
    QCOMPARE(completions(box, QStringLiteral("lue")).size(), 3);
    QVERIFY(box.validateEntry());
    model.reset();
    box.lineEdit()->setText(QStringLiteral("lue"));
    QVERIFY(!box.validateEntry());
    box.showPopup();
    QTest::keyClick(&box, Qt::Key_E);
    QCOMPARE(completions(box, QStringLiteral("lue")), QStringList());
}

void tst_ComboBoxAutoFilter::staysOutOfTheRestOfATree()
{
    QStandardItemModel tree;
    tree.appendRow(new QStandardItem(QStringLiteral("Blue")));
    tree.appendRow(new QStandardItem(QStringLiteral("Branch")));
    tree.item(1)->appendRow(new QStandardItem(QStringLiteral("Red")));
    tree.item(1)->appendRow(new QStandardItem(QStringLiteral("Light Blue")));
    ComboBoxAutoFilter box(nullptr);
    box.setListModel(&tree, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight, Qt::MatchContains);
    box.setRootModelIndex(tree.index(1, 0));
    box.lineEdit()->setText(QStringLiteral("blue"));
    QVERIFY(box.validateEntry());
    QCOMPARE(box.currentIndex(), 1);
    QCOMPARE(box.currentText(), QStringLiteral("Light Blue"));
}

void tst_ComboBoxAutoFilter::measuresAFewOfManyItems()
{
    QStringList names = QVector<QString>(50000, QStringLiteral("name")).toList();
    names[3] = QString(30, QLatin1Char('w'));
    CountedList list(names);
    ComboBoxAutoFilter box(nullptr);
    box.setListModel(&list, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight, Qt::MatchContains);
    list.reads = 0;
    const QSize size = box.sizeHint();
    QCOMPARE(box.minimumSizeHint(), size);
    QVERIFY2(list.reads < 1000, qPrintable(QString::number(list.reads)));

    // The size equals that for a short list, all items of which are measured.
    list.setStringList(names.mid(0, 900));
    ComboBoxAutoFilter small(nullptr);
    small.setListModel(&list, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                       Qt::MatchContains);
    QCOMPARE(size, small.sizeHint());

    list.setStringList(names);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setMinimumContentsLength(5);
    QVERIFY(box.sizeHint().width() < size.width());
    box.setMinimumContentsLength(100);
    QVERIFY(box.sizeHint().width() > size.width());
}

void tst_ComboBoxAutoFilter::opensAMillionItemsAtOneOfTheLast()
{
    QStringList names;
    names.reserve(1000000);
    for (int i = 0; i < 1000000; ++i)
        names += QString::number(i);
    QStringListModel list(names);
    ComboBoxAutoFilter box(nullptr);
    box.setListModel(&list, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight, Qt::MatchContains);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    for (const int row : {999998, 10, 700000}) {
        box.lineEdit()->setText(QString::number(row));
        box.showPopup();
        QTRY_VERIFY(box.view()->isVisible());
        const QModelIndex current = box.view()->currentIndex();
        QCOMPARE(current.row(), box.currentIndex());
        const QRect place = box.view()->visualRect(current);
        QVERIFY(box.view()->sizeHintForIndex(current).width() <= box.view()->viewport()->width());
        QVERIFY(place.top() >= 0 && place.bottom() < box.view()->viewport()->height());
        QVERIFY(!place.isEmpty());
        box.hidePopup();
    }
}

void tst_ComboBoxAutoFilter::isNamedForAssistiveTechnology()
{
    const auto box = makeBox();
    QCOMPARE(accessible(*box).role(), QAccessible::ComboBox);
    QCOMPARE(accessibleName(*box), QString());
    QCOMPARE(accessible(*box).text(QAccessible::Value), QStringLiteral("Red"));
    box->setAccessibleName(QStringLiteral("Colour"));
    QCOMPARE(accessibleName(*box), QStringLiteral("Colour"));
    QCOMPARE(accessibleName(*box->lineEdit()), QStringLiteral("Colour"));
    box->setAccessibleName(QStringLiteral("Hue"));
    QCOMPARE(accessible(*box).childCount(), 2);
    QAccessibleInterface* const field = accessible(*box).child(1);
    QCOMPARE(field->object(), box->lineEdit());
    QCOMPARE(accessible(*box).indexOfChild(field), 1);
    QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Hue"));
    QCOMPARE(field->text(QAccessible::Value), QStringLiteral("Red"));
    box->lineEdit()->setText(QStringLiteral("blu"));
    QCOMPARE(accessible(*box).text(QAccessible::Value), QStringLiteral("blu"));
    QCOMPARE(accessibleName(*box), QStringLiteral("Hue"));

    setUp(*box); // makes another text field
    QCOMPARE(accessible(*box).child(1)->text(QAccessible::Name), QStringLiteral("Hue"));
    QVERIFY(!accessible(*box).child(2));
}

/// Qt asks for the interface of a widget while it is constructed in a disabled parent.
void tst_ComboBoxAutoFilter::isNamedInADisabledParent()
{
    QAccessible::setActive(true);
    const auto inactive = qScopeGuard([] { QAccessible::setActive(false); });
    QWidget window;
    window.setEnabled(false);
    ComboBoxAutoFilter box(&window);
    box.setList(colours);
    setUp(box);
    QVERIFY(!box.isEnabled());
    QCOMPARE(box.parentWidget(), &window);
    QCOMPARE(accessible(box).role(), QAccessible::ComboBox);
    box.setAccessibleName(QStringLiteral("Colour"));
    QCOMPARE(accessibleName(box), QStringLiteral("Colour"));
    QCOMPARE(accessible(box).text(QAccessible::Value), QStringLiteral("Red"));
}

void tst_ComboBoxAutoFilter::isNamedByItsLabelForAssistiveTechnology()
{
    QWidget window;
    QFormLayout form(&window);
    auto* box = new ComboBoxAutoFilter(&window);
    setUp(*box);
    form.addRow(QStringLiteral("&Colour"), box);
    QCOMPARE(accessibleName(*box), QStringLiteral("Colour"));
    QCOMPARE(accessibleName(*box->lineEdit()), QStringLiteral("Colour"));
    const auto relations = accessible(*box).relations(QAccessible::Label);
    QCOMPARE(relations.size(), 1);
    QCOMPARE(relations.first().first->object(), form.labelForField(box));
}

void tst_ComboBoxAutoFilter::keepsTheNameOfItsField()
{
    const auto box = makeBox();
    box->lineEdit()->setAccessibleName(QStringLiteral("Typed colour"));
    box->setAccessibleName(QStringLiteral("Colour"));
    QCOMPARE(accessibleName(*box), QStringLiteral("Colour"));
    QCOMPARE(accessibleName(*box->lineEdit()), QStringLiteral("Typed colour"));
}

void tst_ComboBoxAutoFilter::opensItsListForAssistiveTechnology()
{
    const auto box = makeBox();
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QAccessibleInterface& shown = accessible(*box);
    QAccessibleActionInterface& actions = *accessible(*box).actionInterface();
    const QString showMenu = QAccessibleActionInterface::showMenuAction();
    QVERIFY(actions.actionNames().contains(showMenu));
    QVERIFY(shown.state().expandable && shown.state().hasPopup && shown.state().editable && !shown.state().expanded);
    actions.doAction(showMenu);
    QTRY_VERIFY(box->view()->isVisible());
    QVERIFY(shown.state().expanded);
    actions.doAction(showMenu);
    QTRY_VERIFY(!box->view()->isVisible());
    QVERIFY(!shown.state().expanded);
    box->setEnabled(false);
    actions.doAction(showMenu);
    QVERIFY(!box->view()->isVisible());
}

void tst_ComboBoxAutoFilter::isAccessibleWithoutATextField()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(colours);
    box.setAccessibleName(QStringLiteral("Colour"));
    QCOMPARE(accessibleName(box), QStringLiteral("Colour"));
    QCOMPARE(accessible(box).text(QAccessible::Value), QStringLiteral("Red"));
    QCOMPARE(accessible(box).childCount(), 1);
    QCOMPARE(accessible(box).child(0)->object(), box.view());
    QVERIFY(!accessible(box).child(1));
    QVERIFY(!accessible(box).state().editable);
}

UI_TEST_MAIN(tst_ComboBoxAutoFilter)

#include "tst_ComboBoxAutoFilter.moc"
