// SPDX-License-Identifier: GPL-3.0-or-later
// What the window asks of each of its pages.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "qt/charts/study_picture.h"

namespace tarvokol {

class StudyPage : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    // The page's topic of the help.
    virtual std::string HelpTopic() const = 0;

    // What it shows; none while there is none, and for a page that has none.
    virtual AnyStudyPicture PictureNow() const { return {}; }

    // The figures that it shows, as CSV; empty for none.
    virtual std::string CsvNow() const { return ""; }

    // The line of the command line that gives the same figures; empty where there is none.
    virtual std::string CommandNow() const { return ""; }

    // Lines that are printed below its picture.
    virtual std::vector<std::string> ReportNow() const { return {}; }

    // What the file of its picture is called, without an extension: "map".
    virtual std::string PictureName() const { return "study"; }
};

}  // namespace tarvokol
