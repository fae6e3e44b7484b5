// SPDX-License-Identifier: GPL-3.0-or-later
// Results as JSON: keys in the order in which they are added.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "core/runtime/one_based.h"

namespace tarvokol::cli {

using Json = nlohmann::ordered_json;

// A number; whole ones without a fraction, so that 10 reads "10", and no NaN or infinity (they are null).
Json NumberJson(double value);

// Elements 1 to `count` of an array.
template <typename T, std::size_t N>
Json ArrayJson(const OneBased<T, N>& values, long count = static_cast<long>(N)) {
    Json list = Json::array();
    for (long i = 1; i <= count; ++i) list.push_back(NumberJson(static_cast<double>(values[i])));
    return list;
}

// One line of text; bytes of a path that are no UTF-8 are replaced.
std::string JsonLine(const Json& object);

// The open project, as its variables stand.
Json ProjectJson();

}  // namespace tarvokol::cli
