// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/qt_screen_fonts.h"

#include <QFontDatabase>
#include <algorithm>
#include <memory>

#include <fontconfig/fontconfig.h>

#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// A family asked for by name and the families whose characters are as wide.
struct NamedFamily {
    const char* name;
    QStringList equivalents;
};

const std::vector<NamedFamily>& NamedFamilies() {
    static const std::vector<NamedFamily> families{
        {"Arial", {"Liberation Sans", "Arimo", "Nimbus Sans", "Nimbus Sans L", "TeX Gyre Heros"}},
        {"Courier New", {"Liberation Mono", "Cousine"}},
        {"Courier", {"Nimbus Mono PS", "Nimbus Mono L", "TeX Gyre Cursor", "Liberation Mono", "Cousine"}},
    };
    return families;
}

const NamedFamily* FindNamed(const QString& family) {
    for (const NamedFamily& named : NamedFamilies())
        if (family.compare(QLatin1String(named.name), Qt::CaseInsensitive) == 0) return &named;
    return nullptr;
}

// The system's font for a name, of which it may have several.
QStringList FamiliesFor(const char* name) {
    struct Destroy {
        void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    };
    using Pattern = std::unique_ptr<FcPattern, Destroy>;
    const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, name, nullptr));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    QStringList families;
    FcChar8* family = nullptr;
    while (found && FcPatternGetString(found.get(), FC_FAMILY, static_cast<int>(families.size()), &family) ==
                        FcResultMatch)
        families.append(QString::fromUtf8(reinterpret_cast<const char*>(family)));
    return families;
}

// The system is asked itself: the toolkit would load the font and all that stand in for its missing characters, which
// is a good part of the program's start.
bool IsMappedToEquivalent(const NamedFamily& family) {
    const QStringList families = FamiliesFor(family.name);
    return std::any_of(families.begin(), families.end(), [&family](const QString& one) {
        return family.equivalents.contains(one, Qt::CaseInsensitive);
    });
}

// The family as the system spells it, or as the program does where the system has another one for it; else empty.
std::string FindNameLike(const std::string& family) {
    const QString wanted = ToQt(family);
    for (const QString& listed : QFontDatabase::families())
        if (listed.compare(wanted, Qt::CaseInsensitive) == 0) return FromQt(listed);
    const NamedFamily* named = FindNamed(wanted);
    return named != nullptr && IsMappedToEquivalent(*named) ? named->name : "";
}

}  // namespace

QStringList EquivalentsOf(const QString& family) {
    const NamedFamily* named = FindNamed(family);
    return named != nullptr ? named->equivalents : QStringList();
}

bool FontIsPresent(const QString& family) {
    if (QFontDatabase::hasFamily(family)) return true;
    const NamedFamily* named = FindNamed(family);
    return named != nullptr && IsMappedToEquivalent(*named);
}

std::vector<std::string> QtScreenFonts::Names() const {
    QStringList families = QFontDatabase::families();
    for (const NamedFamily& named : NamedFamilies()) {
        const QString name = QLatin1String(named.name);
        if (!families.contains(name, Qt::CaseInsensitive) && FontIsPresent(name)) families.append(name);
    }
    std::vector<std::string> names;
    for (const QString& family : families) names.push_back(FromQt(family));
    return names;
}

std::string QtScreenFonts::NameLike(const std::string& family) const {
    const auto known = names_.find(family);
    return known != names_.end() ? known->second : names_[family] = FindNameLike(family);
}

}  // namespace tarvokol
