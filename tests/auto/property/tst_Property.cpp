#include "TestHome.h"
#include "VirtualSlot.h"
#include "property/Property.h"
#include "systemLimits.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <vector>

using zelmar::AllowAnyValueValidator;
using zelmar::InvalidPropertyValueException;
using zelmar::Property;
using zelmar::PropertyAbstract;
using zelmar::PropertyItemInterface;
using zelmar::ValidationResult;
using zelmar::ValidatorInterface;

// Observers are connected to one object, so a property can be neither copied nor moved.
static_assert(!std::is_copy_constructible_v<Property<int>> && !std::is_move_constructible_v<Property<int>>,
              "a property is neither copied nor moved");
static_assert(!std::is_copy_assignable_v<Property<int>> && !std::is_move_assignable_v<Property<int>>,
              "a property is neither assigned nor moved to");
static_assert(std::is_default_constructible_v<Property<int>>, "a property can be default-constructed");
static_assert(!std::is_convertible_v<int, Property<int>>, "a value does not convert to a property implicitly");
static_assert(std::is_abstract_v<PropertyAbstract<int>> && std::is_abstract_v<ValidatorInterface<int>>,
              "interfaces are abstract");
static_assert(
    std::has_virtual_destructor_v<
        PropertyItemInterface> && std::has_virtual_destructor_v<ValidatorInterface<int>> && std::has_virtual_destructor_v<ValidationResult>,
    "objects can be deleted through their base classes");
static_assert(std::is_base_of_v<PropertyItemInterface, Property<std::string>>,
              "properties of all types share one base class");
static_assert(std::is_same<decltype(std::declval<const Property<std::string>&>().value()), std::string>::value,
              "value() returns a copy and is const");
static_assert(std::is_nothrow_copy_constructible_v<InvalidPropertyValueException>,
              "copying an exception does not throw");
static_assert(
    std::is_base_of_v<zelmar::ExceptionBase,
                      InvalidPropertyValueException> && std::is_base_of_v<std::exception, zelmar::ExceptionBase>,
    "the exception can be caught as any of its base classes");
static_assert(!std::is_convertible_v<std::string, ValidationResult>,
              "a string does not convert to a result implicitly");

namespace {

/// A property that records the steps of setValue().
class Traced : public Property<int>
{
public:
    using Property<int>::Property;

    bool isCurrentValue(const int& value) const override
    {
        steps.push_back("compare " + std::to_string(value));
        return Property<int>::isCurrentValue(value);
    }

    void validateValue(const int& value) const override
    {
        steps.push_back("validate " + std::to_string(value));
        Property<int>::validateValue(value);
    }

    /// Stores half of the value, so that the value read back differs from the argument.
    void assignValue(const int& value) override
    {
        steps.push_back("assign " + std::to_string(value));
        Property<int>::assignValue(value / 2);
    }

    void emitValueChanged(const int& value) override
    {
        steps.push_back("emit " + std::to_string(value));
        Property<int>::emitValueChanged(value);
    }

    mutable std::vector<std::string> steps;
};

struct AtMostTen : ValidatorInterface<int>
{
    ValidationResult validate(const int& value) const override
    {
        return value <= 10 ? ValidationResult() : ValidationResult("10 is the most: \xC3\xA4");
    }
};

/// A validator that inherits ValidatorInterface twice, which the virtual base class merges.
struct Combined : AllowAnyValueValidator<int>, virtual ValidatorInterface<int>
{
};

/// Gives the test access to the order of the virtual functions.
struct Slots : Property<int>
{
    static std::vector<std::size_t> inOrder()
    {
        return {virtualSlot(&Slots::onPropertyHook), virtualSlot(&Slots::assignValue),
                virtualSlot(&Slots::isCurrentValue), virtualSlot(&Slots::validateValue),
                virtualSlot(&Slots::value),          virtualSlot(&Slots::emitValueChanged)};
    }
};

} // namespace

class tst_Property : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsInitialValue();
    void performsTheStepsInOrder();
    void doesNotNotifyOfAnEqualValue();
    void notifiesOfEachChangeOnce();
    void comparesTextByContent();
    void notifiesOfNaNEachTime();
    void throwsWhenTheValidatorRejects();
    void validatesTheCurrentValueToo();
    void acceptsEveryValueWithANullValidator();
    void exceptionCanBeCaughtAsItsBaseClasses();
    void callsObserversInOrder();
    void letsAnObserverSetTheValueAgain();
    void keepsTheValueWhenAnObserverThrows();
    void changesNothingWhenTheValidatorThrows();
    void allowsConnectingAndDisconnectingMeanwhile();
    void combinesValidators();
    void keepsTheOrderOfVirtualFunctions();
    void keepsItsEmptyReference();
};

void tst_Property::startsWithItsInitialValue()
{
    QCOMPARE(boost::make_shared<Property<int>>(1)->value(), 1);
    QCOMPARE(boost::make_shared<Property<int>>()->value(), 0);
    QCOMPARE(boost::make_shared<Property<bool>>()->value(), false);
    QCOMPARE(boost::make_shared<Property<std::string>>()->value(), std::string());
    QCOMPARE(boost::make_shared<Property<std::string>>("a")->value(), std::string("a"));
}

void tst_Property::performsTheStepsInOrder()
{
    Traced property(1);
    property.setValue(6);
    const std::vector<std::string> expected = {"validate 6", "compare 6", "assign 6", "emit 3"};
    QCOMPARE(property.steps, expected);
}

void tst_Property::doesNotNotifyOfAnEqualValue()
{
    Traced property(5);
    property.setValue(5);
    const std::vector<std::string> expected = {"validate 5", "compare 5"};
    QCOMPARE(property.steps, expected);
}

void tst_Property::notifiesOfEachChangeOnce()
{
    const auto property = boost::make_shared<Property<int>>(1);
    const boost::shared_ptr<PropertyAbstract<int>> observed = property;
    std::vector<int> notified;
    observed->signalValueChanged().connect([&notified](const int& value) { notified.push_back(value); });

    property->setValue(2);
    property->setValue(2);
    property->setValue(1);

    const std::vector<int> expected = {2, 1};
    QCOMPARE(notified, expected);
    QCOMPARE(observed->value(), 1);
}

void tst_Property::comparesTextByContent()
{
    Property<std::string> property(std::string("a\0b", 3));
    int changes = 0;
    property.signalValueChanged().connect([&changes](const std::string&) { ++changes; });
    property.setValue(std::string("a\0b", 3));
    QCOMPARE(changes, 0);
    property.setValue("a");
    QCOMPARE(changes, 1);
}

void tst_Property::notifiesOfNaNEachTime()
{
    Property<double> property;
    int changes = 0;
    property.signalValueChanged().connect([&changes](double) { ++changes; });
    property.setValue(std::numeric_limits<double>::quiet_NaN());
    property.setValue(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(changes, 2);
    QVERIFY(std::isnan(property.value()));
}

void tst_Property::throwsWhenTheValidatorRejects()
{
    Property<int> property(3);
    property.setValidator(boost::make_shared<AtMostTen>());
    bool notified = false;
    property.signalValueChanged().connect([&notified](int) { notified = true; });
    try {
        property.setValue(11);
        QFAIL("11 was accepted");
    } catch (const InvalidPropertyValueException& refusal) {
        QCOMPARE(refusal.what(), "10 is the most: \xC3\xA4");
    }
    QCOMPARE(property.value(), 3);
    QVERIFY(!notified);
    property.setValue(10);
    QCOMPARE(property.value(), 10);
    QVERIFY(notified);
}

void tst_Property::validatesTheCurrentValueToo()
{
    Property<int> property(11);
    property.setValidator(boost::make_shared<AtMostTen>());
    QCOMPARE(property.value(), 11);
    QVERIFY_EXCEPTION_THROWN(property.setValue(11), InvalidPropertyValueException);
}

void tst_Property::acceptsEveryValueWithANullValidator()
{
    Property<int> property(3);
    property.setValidator(boost::make_shared<AtMostTen>());
    property.setValidator(nullptr);
    property.setValue(11);
    QCOMPARE(property.value(), 11);
}

void tst_Property::exceptionCanBeCaughtAsItsBaseClasses()
{
    Property<int> property;
    property.setValidator(boost::make_shared<AtMostTen>());
    QVERIFY_EXCEPTION_THROWN(property.setValue(11), zelmar::ExceptionBase);
    QVERIFY_EXCEPTION_THROWN(property.setValue(11), std::exception);

    InvalidPropertyValueException other("other");
    {
        const InvalidPropertyValueException original("why");
        other = original;
    }
    QCOMPARE(other.what(), "why");
}

void tst_Property::callsObserversInOrder()
{
    Property<int> property;
    std::string calls;
    for (const char* name : {"a", "b", "c"})
        property.signalValueChanged().connect([&calls, name](int) { calls += name; });
    property.setValue(1);
    QCOMPARE(calls, std::string("abc"));
}

void tst_Property::letsAnObserverSetTheValueAgain()
{
    Property<int> property;
    std::vector<std::string> calls;
    const auto note = [&](const char* name, int argument) {
        calls.push_back(name + std::to_string(argument) + " of " + std::to_string(property.value()));
    };
    property.signalValueChanged().connect([&](int value) {
        note("a", value);
        if (value == 1)
            property.setValue(2);
    });
    property.signalValueChanged().connect([&](int value) { note("b", value); });

    property.setValue(1);

    const std::vector<std::string> expected = {"a1 of 1", "a2 of 2", "b2 of 2", "b1 of 2"};
    QCOMPARE(calls, expected);
}

void tst_Property::keepsTheValueWhenAnObserverThrows()
{
    Property<int> property;
    bool reached = false;
    property.signalValueChanged().connect([](int) { throw std::runtime_error("observer"); });
    property.signalValueChanged().connect([&reached](int) { reached = true; });
    QVERIFY_EXCEPTION_THROWN(property.setValue(1), std::runtime_error);
    QCOMPARE(property.value(), 1);
    QVERIFY(!reached);
}

void tst_Property::changesNothingWhenTheValidatorThrows()
{
    struct Throwing : ValidatorInterface<int>
    {
        ValidationResult validate(const int&) const override { throw std::logic_error("validator"); }
    };
    Property<int> property(1);
    property.setValidator(boost::make_shared<Throwing>());
    QVERIFY_EXCEPTION_THROWN(property.setValue(2), std::logic_error);
    QCOMPARE(property.value(), 1);
}

void tst_Property::allowsConnectingAndDisconnectingMeanwhile()
{
    Property<int> property;
    std::string calls;
    boost::signals2::connection second;
    property.signalValueChanged().connect([&](int value) {
        calls += 'a';
        second.disconnect();
        if (value == 1)
            property.signalValueChanged().connect([&calls](int) { calls += 'c'; });
    });
    second = property.signalValueChanged().connect([&calls](int) { calls += 'b'; });

    property.setValue(1);
    QCOMPARE(calls, std::string("a"));
    property.setValue(2);
    QCOMPARE(calls, std::string("aac"));
}

void tst_Property::combinesValidators()
{
    const Combined combined;
    const ValidatorInterface<int>& validator = combined; // would be ambiguous without the virtual base
    QVERIFY(validator.validate(std::numeric_limits<int>::min()).isValid());
    QCOMPARE(validator.validate(0).errorString(), std::string());
}

void tst_Property::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    // 0 is signalPropertyChangedConnected(), 1 and 2 are the destructor.
    const std::vector<std::size_t> expected = {3, 4, 5, 6, 7, 8};
    QCOMPARE(Slots::inOrder(), expected);
}

void tst_Property::keepsItsEmptyReference()
{
    /// A property that lets the test look at the members that a derived class sees.
    class Open : public Property<int>
    {
    public:
        bool refersToNothing() const { return m_trackedSelf.expired(); }
    };
    const auto property = boost::make_shared<Open>();
    property->setValue(2);
    QVERIFY(property->refersToNothing());
    QCOMPARE(sizeof(PropertyAbstract<int>), sizeof(PropertyItemInterface) + sizeof(PropertyAbstract<int>::Signal)
                                                + sizeof(boost::shared_ptr<void>) + sizeof(boost::weak_ptr<void>));
}

CORE_TEST_MAIN(tst_Property)
#include "tst_Property.moc"
