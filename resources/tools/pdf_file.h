// SPDX-License-Identifier: GPL-3.0-or-later
// A PDF as QPdfWriter writes it, taken apart into its objects and put together again.
#pragma once

#include <QByteArray>
#include <QMap>

namespace tarvokol {

class PdfFile {
  public:
    // False if the bytes are no such file.
    bool Read(const QByteArray& bytes);

    // What stands between an object's number and its end, by its number.
    QMap<int, QByteArray>& Objects() { return objects_; }
    // The number of a new object, empty as yet.
    int NewObject() { return ++last_; }

    int Catalog() const { return catalog_; }
    int Information() const { return information_; }

    // The whole file, without what its writer left in the trailer beside catalog and information: a number that it drew.
    QByteArray Bytes() const;

  private:
    QByteArray head_;  // what stands before the first object
    QMap<int, QByteArray> objects_;
    int last_ = 0;  // the highest object number
    int catalog_ = 0;
    int information_ = 0;
};

// The number after the last occurrence of a key, 0 without one.
int NumberAfter(const QByteArray& bytes, const QByteArray& key);

}  // namespace tarvokol
