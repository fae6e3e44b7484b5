// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/desktop_clock.h"

#include <QDateTime>
#include <QTimeZone>

#include "core/files/source_date.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Takes the zone, "t" outside quotes, out of a format of times, and the brackets that some languages write around it.
QString WithoutZone(const QString& format) {
    QString left;
    bool quoted = false;
    for (const QChar sign : format) {
        if (sign == '\'') quoted = !quoted;
        if (sign != 't' || quoted) left += sign;
    }
    return left.remove("()").simplified();
}

}  // namespace

std::string DesktopClock::TimeText() const {
    const auto named = SourceDate();
    return TimeTextOf(named ? QDateTime::fromSecsSinceEpoch(*named, QTimeZone::utc()).time()
                            : QTime::currentTime());
}

std::string DesktopClock::TimeTextOf(const QTime& time) const {
    return FromQt(locale_.toString(time, WithoutZone(locale_.timeFormat(QLocale::LongFormat))).simplified());
}

std::string DesktopClock::ShortMonthName(int month) const {
    return FromQt(locale_.monthName(month, QLocale::ShortFormat));
}

}  // namespace tarvokol
