// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help/help_collection.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHelpSearchEngine>
#include <QStandardPaths>

namespace tarvokol {
namespace {

const char* const virtual_folder = "doc";
const char* const stamp_key = "CompiledFileStamp";

// Two copies of the program have help files of their own, so the collection is named for the file's place.
QString CollectionName(const QString& compiled_file) {
    const QByteArray place = QFileInfo(compiled_file).absoluteFilePath().toUtf8();
    const QByteArray digest = QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex().left(12);
    return "help-" + QString::fromLatin1(digest) + ".qhc";
}

QString CacheFolder() {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    if (cache.isEmpty()) return {};
    const QString folder = cache + "/tarvokol/help";
    if (!QDir().mkpath(folder) || !QFileInfo(folder).isWritable()) return {};
    return folder;
}

QString StampOf(const QString& compiled_file) {
    const QFileInfo info(compiled_file);
    return QString::number(info.size()) + " " + QString::number(info.lastModified().toMSecsSinceEpoch());
}

}  // namespace

HelpCollection::HelpCollection(const QString& compiled_file) {
    QString folder = CacheFolder();
    if (folder.isEmpty()) {
        scratch_ = std::make_unique<QTemporaryDir>();
        folder = scratch_->path();
    }
    engine_ = std::make_unique<QHelpEngine>(folder + "/" + CollectionName(compiled_file));
    engine_->setReadOnly(false);
    engine_->setUsesFilterEngine(true);
    if (QFileInfo::exists(compiled_file)) name_space_ = QHelpEngineCore::namespaceName(compiled_file);
    if (!name_space_.isEmpty() && engine_->setupData()) Register(compiled_file);
}

// A help file that has changed since it was registered is registered and indexed afresh.
void HelpCollection::Register(const QString& compiled_file) {
    const QString stamp = StampOf(compiled_file);
    const bool known = engine_->registeredDocumentations().contains(name_space_);
    const bool current = known && engine_->customValue(stamp_key).toString() == stamp;
    if (!current) {
        if (known) engine_->unregisterDocumentation(name_space_);
        if (!engine_->registerDocumentation(compiled_file)) return;
        engine_->setCustomValue(stamp_key, stamp);
        engine_->setupData();
    }
    usable_ = true;
    engine_->searchEngine()->reindexDocumentation();
}

QUrl HelpCollection::TopicAddress(const QString& topic) const {
    if (!usable_) return {};
    const QUrl address("qthelp://" + name_space_ + "/" + virtual_folder + "/" + topic);
    return engine_->fileData(address.adjusted(QUrl::RemoveFragment)).isEmpty() ? QUrl() : address;
}

}  // namespace tarvokol
