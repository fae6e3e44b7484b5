// SPDX-License-Identifier: GPL-3.0-or-later
// What a form shows and tells before anything is entered: one line for each control, so that a test holds a form's texts
// in one table.
#pragma once

#include <QMainWindow>
#include <QSize>
#include <QWidget>
#include <string>
#include <vector>

namespace tarvokol {

// One line for the form and for each of its named controls that has anything to tell, in no certain order: name, caption
// ("&" before its mnemonic; captions of pages are joined by "|"), then, where they hold,
//   for NAME       the control that a label's mnemonic goes to
//   read 'TEXT'    the accessible name
//   told 'TEXT'    the accessible description
//   tip 'TEXT'     the tool tip
//   on, off, locked, grey, hidden, default, cancel
// "off" is a disabled control, "locked" a box that takes no keys, "grey" one on the colour of its window. What a box
// holds is no part of its line.
std::vector<std::string> FactsOf(QWidget& form);

// Names of the controls that take the keyboard, in the order in which the tab key goes through them, all pages
// included; it begins with `first`.
std::vector<std::string> FocusChainOf(QWidget& form, const std::string& first);

// The tests run with another font of the desktop than their own.
bool InAnotherFont();

// The size in which a form is drawn; with another font of the desktop than the tests' own, larger where its contents want it.
QSize DrawnIn(const QMainWindow& form, const QSize& drawn);

}  // namespace tarvokol
