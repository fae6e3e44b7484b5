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

    // What stands between an object's number and its end, by its number. A stream has its length in its own dictionary.
    QMap<int, QByteArray>& Objects() { return objects_; }
    // The number of a new object, empty as yet.
    int NewObject() { return ++last_; }

    int Catalog() const { return catalog_; }
    int Information() const { return information_; }

    // The whole file, in the form of PDF 1.5, in which everything but the streams is compressed together. What its writer left
    // in the trailer beside catalog and information, a number that it drew, is left out.
    QByteArray Bytes() const;

  private:
    void GiveStreamsTheirLengths();

    QByteArray head_;  // what stands before the first object
    QMap<int, QByteArray> objects_;
    int last_ = 0;  // the highest object number
    int catalog_ = 0;
    int information_ = 0;
};

inline constexpr const char* pdf_stream_start = ">>\nstream\n";
inline constexpr const char* pdf_stream_end = "\nendstream\n";

// The content of a stream, compressed.
QByteArray PackedForPdf(const QByteArray& bytes);

// The number after the last occurrence of a key, 0 without one.
int NumberAfter(const QByteArray& bytes, const QByteArray& key);

}  // namespace tarvokol
