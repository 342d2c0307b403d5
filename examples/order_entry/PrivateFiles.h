// Files and folders of the user alone: made so from the first moment, since what is opened to others for an
// instant can be read in that instant.
#pragma once

#include <QString>

/// Makes the folder and those above it that are missing; those that are there stay as they are. False when
/// one cannot be made.
bool makePrivateFolder(const QString& folder);
/// Makes an empty file where there is none; false when it cannot be made. One that is there is left alone.
bool makePrivateFile(const QString& file);
