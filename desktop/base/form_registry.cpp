// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/form_registry.h"

#include <map>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

std::map<std::string, FormLoader, std::less<>> Loaders;
std::map<std::string, GraphOpener, std::less<>> GraphOpeners;

template <typename Entry>
Entry EntryOf(const std::map<std::string, Entry, std::less<>>& table, std::string_view name) {
    const auto found = table.find(name);
    if (found == table.end()) Raise(error_number::InvalidCall);
    return found->second;
}

template <typename Entry>
std::vector<std::string> NamesIn(const std::map<std::string, Entry, std::less<>>& table) {
    std::vector<std::string> names;
    names.reserve(table.size());
    for (const auto& [name, entry] : table) names.push_back(name);
    return names;
}

}  // namespace

void EnterForm(std::string_view name, FormLoader loader) {
    Loaders.insert_or_assign(std::string(name), loader);
}

void EnterGraphForm(std::string_view name, GraphOpener opener) {
    GraphOpeners.insert_or_assign(std::string(name), opener);
}

FormBase& FormNamed(std::string_view name) {
    return EntryOf(Loaders, name)();
}

std::vector<std::string> FormNames() {
    return NamesIn(Loaders);
}

std::vector<std::string> GraphFormNames() {
    return NamesIn(GraphOpeners);
}

void ShowGraphForm(std::string_view name, int index, QWidget* owner) {
    EntryOf(GraphOpeners, name)(index, owner);
}

}  // namespace tarvokol
