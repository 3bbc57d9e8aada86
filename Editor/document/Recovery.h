// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <vector>

namespace zarn::editor {

class Document;

/// Keeps a copy of a document with changes that are not saved, in case that the program ends
/// without being asked to. The copy goes when the document is saved or closed.
class Recovery : public QObject {
    Q_OBJECT
public:
    /// The document must outlive it.
    explicit Recovery(Document &document);
    ~Recovery() override;

    /// Writes the copy now rather than some seconds behind the change.
    void keep();
    /// Takes the copy away: what is there is saved, or not wanted.
    void forget();

    QString copyPath() const { return _base + QStringLiteral(".zarn"); }

private:
    void follow();

    Document &_document;
    QString _base;
    std::unique_ptr<QLockFile> _lock;
    QTimer _timer;
};

/// A copy that a run of the program left behind.
struct LostDocument {
    QString copyPath;
    /// Where the document was saved; empty when it never was.
    QString originalPath;
};

/// The copies that no running program keeps.
std::vector<LostDocument> lostDocuments();

/// Takes one away, with what belongs to it.
void removeLost(const LostDocument &lost);

} // namespace zarn::editor
