// SPDX-License-Identifier: GPL-3.0-or-later
// The dates of a PDF file, which its writer takes from the clock, and the number that some writers draw for it.
#pragma once

#include <QByteArray>
#include <string>

namespace tarvokol {

// Puts the date that SourceDate names, if any, in place of the writer's, and a number made of the content in place of one that
// was drawn; nothing moves, so that the file's table of objects holds.
void SettleDateOfPdf(QByteArray& pdf);

// The same in a file. Raises the errors of the files.
void SettleDateOfPdfFile(const std::string& path);

}  // namespace tarvokol
