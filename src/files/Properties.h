#pragma once
// The rows of the Properties dialog, without widgets: File, Folder, Size ("1,500 bytes
// (1.4 KB)", the kilobytes cut to one decimal, never rounded up), Type, Modified and
// "Width x height" ("(Unknow)" for a file that is no image), the pages or an animation's
// frames when there are several, then whatever the photo records about itself.

#include <QString>

#include <utility>
#include <vector>

namespace files {

std::vector<std::pair<QString, QString>> PropertyRows(const QString& path);

}  // namespace files
