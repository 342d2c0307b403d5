// What the files of drafts are called, and what they hold beside the grid that the host has not put there.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include "kxVsGrid/Draft.h"
#include "kxVsGrid/qt/DraftFile.h"

namespace kxVsGrid::qt::drafts {

/// What a file is called: a name that can be read, and is another one for each key. `number` 1 is the first.
QString nameOf(const QString& key, int number);
/// A file that is to take the place of `path` when it is whole.
QString nameBeside(const QString& path);
/// The file that such a one would have replaced.
QString replacedBy(const QString& beside);
/// A free name for what is kept beside.
QString keptName(const QString& path);

inline constexpr const char* EditorNote = "editor";
inline constexpr const char* BeforeNote = "kxVsGrid.before";

/// What the file itself does not tell any more, or never did.
struct Before {
    bool changed = false;    ///< something was, be it no step
    bool recovered = false;  ///< it begins with what was recovered, not with the document
    std::size_t steps = 0;   ///< before those that stand in it
    std::string lastStep;

    std::string text() const;
};

/// Takes the notes out of what was put, and the steps of before into account.
struct Notes {
    Before before;
    std::string editor;
};
Notes takeNotes(DraftInfo& info);
/// Nothing in it is worth keeping.
bool emptyDraft(const DraftInfo& info, const Notes& notes);

std::string noteOf(const DraftFile::EditorText& text);
std::optional<DraftFile::EditorText> editorTextOf(const std::string& note);
}  // namespace kxVsGrid::qt::drafts
