#include "exchange/NameChoice.h"

#include "settings/StdModule.h"

#include <algorithm>
#include <iterator>

std::variant<Choice, Doubt> Choose(const std::vector<Choice>& choices, std::wstring_view wanted) {
    const auto number = NumberFromText(wanted);
    Doubt found;
    const auto collect = [&](const auto& fits) {
        if (found.empty()) {
            std::ranges::copy_if(choices, std::back_inserter(found), fits);
        }
    };
    collect([&](const Choice& choice) { return choice.name == wanted; });
    collect(
        [&](const Choice& choice) { return !choice.name.empty() && EqualsIgnoreCase(choice.name, wanted); });
    collect([&](const Choice& choice) { return number && choice.number == *number; });
    if (found.size() == 1) {
        return found.front();
    }
    return found;
}
