// Compares setting a property with one observer to another value with emitting a bare signal to the same observer.

#include "Comparison.h"
#include "property/Property.h"

#include <string>

namespace {

constexpr int setsPerRound = 200000;

template <typename T>
void compareSetting(const char* subject, const T& first, const T& second)
{
    std::size_t heard = 0;
    const auto observer = [&heard](const T&) { ++heard; };
    zelmar::Property<T> property;
    property.signalValueChanged().connect(observer);
    typename zelmar::PropertyAbstract<T>::Signal signal;
    signal.connect(observer);

    compare(
        subject, 51,
        [&] {
            for (int i = 0; i < setsPerRound; ++i)
                property.setValue(i % 2 == 0 ? first : second);
        },
        [&] {
            for (int i = 0; i < setsPerRound; ++i)
                signal(i % 2 == 0 ? first : second);
        });
    if (heard < std::size_t{102} * setsPerRound) // twice 51 rounds
        std::printf("only %zu of the changes were heard\n", heard);
}

} // namespace

int main()
{
    compareSetting<int>("set an int", 1, 2);
    compareSetting<bool>("set a bool", true, false);
    compareSetting<std::string>("set a short text", "a.dat", "b.dat");
    compareSetting<std::string>("set a path of 80 letters", std::string(80, 'a'), std::string(80, 'b'));
}
