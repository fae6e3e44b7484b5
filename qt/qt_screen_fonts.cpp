// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_screen_fonts.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

#include "qt/qt_text.h"

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

bool IsMappedToEquivalent(const NamedFamily& family) {
    const QString resolved = QFontInfo(QFont(family.name)).family();
    return family.equivalents.contains(resolved, Qt::CaseInsensitive);
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
    const QString wanted = ToQt(family);
    for (const QString& listed : QFontDatabase::families())
        if (listed.compare(wanted, Qt::CaseInsensitive) == 0) return FromQt(listed);
    const NamedFamily* named = FindNamed(wanted);
    return named != nullptr && IsMappedToEquivalent(*named) ? named->name : "";
}

}  // namespace tarvokol
