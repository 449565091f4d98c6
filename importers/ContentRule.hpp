#pragma once

#include <QString>

/// What can be done with the content of a file.
struct ContentRule
{
    enum Reader {
        None,
        Cad,
        Mesh,
        /// Reads by running what it reads.
        Script,
    };

    Reader reader;
    /// Why nothing reads it, of None. Ends a sentence; in English, in the context "ContentRule".
    const char* reason;

    /// Looks into the file.
    static const ContentRule& of(const QString& file);

    /// The reason in the user's language.
    QString reason_text() const;
};

/// The programs that read.
inline constexpr const char* cad_helper = "treemodel-import-cad";
inline constexpr const char* mesh_helper = "treemodel-import-mesh";
