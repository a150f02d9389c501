#include "model/options.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace qvgraph {

namespace {

// The options of an object that a store has under one key: several if their keys
// differ only after a NUL.
std::span<const Option> optionsUnder(const OptionObject& object, std::string_view key) {
    const auto first = std::lower_bound(
        object.options.begin(),
        object.options.end(),
        key,
        [](const Option& option, std::string_view bound) { return option.member->key < bound; });
    const auto last = std::find_if(first, object.options.end(), [key](const Option& option) {
        return untilNul(option.member->key) != key;
    });
    return {first, last};
}

}  // namespace

std::string_view untilNul(std::string_view string) {
    return string.substr(0, string.find('\0'));
}

// The parser and the source have the members of an object in the same order.
OptionObject optionObjectOf(const Value* object, Conversions* conversions) {
    if (object == nullptr || !object->isObject()) {
        return {};
    }
    OptionObject options = {.value = object, .options = {}};
    options.options.reserve(object->children.size());
    for (size_t i = 0; i < object->children.size(); ++i) {
        options.options.push_back(
            {.member = object->children[i], .stored = std::move(conversions->at(i))});
    }
    Conversions().swap(*conversions);
    return options;
}

void linkOverridden(Node* node) {
    std::vector<Option*> stored;
    for (OptionObject& object : node->objects) {
        for (Option& option : object.options) {
            if (option.stored) {
                stored.push_back(&option);
            }
        }
    }
    std::stable_sort(stored.begin(), stored.end(), [](const Option* a, const Option* b) {
        return untilNul(a->member->key) < untilNul(b->member->key);
    });
    for (size_t i = 0; i + 1 < stored.size(); ++i) {
        if (untilNul(stored[i]->member->key) == untilNul(stored[i + 1]->member->key)) {
            stored[i]->overriddenBy = stored[i + 1];
        }
    }
}

const Option* optionUnder(const Node& node, std::string_view key) {
    const Option* found = nullptr;
    for (const OptionObject& object : node.objects) {
        for (const Option& option : optionsUnder(object, untilNul(key))) {
            if (found == nullptr || !found->stored || option.stored) {
                found = &option;
            }
        }
    }
    return found;
}

std::vector<const Option*> storedOptions(const Node& node) {
    std::vector<const Option*> options;
    for (const OptionObject& object : node.objects) {
        for (const Option& option : object.options) {
            if (option.stored && option.overriddenBy == nullptr) {
                options.push_back(&option);
            }
        }
    }
    std::sort(options.begin(), options.end(), [](const Option* a, const Option* b) {
        return untilNul(a->member->key) < untilNul(b->member->key);
    });
    return options;
}

const std::string* storedString(const Node& node, std::string_view key) {
    const Option* const option = optionUnder(node, key);
    return option == nullptr || !option->stored ? nullptr
                                                : std::get_if<std::string>(&*option->stored);
}

}  // namespace qvgraph
