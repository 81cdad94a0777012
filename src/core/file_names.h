#pragma once
// The name parts of a sounding's path. Both separators count, '/' and '\\', so that paths kept
// from other systems (the recent-file list, the settings) are cut the same way.
#include <string>

namespace tellux {

// The bare name a file dialog gives: what follows the last separator, the whole path without one.
std::string bare_name(const std::string& path);

// The name as the open flow cuts it: what follows the last separator. Without a separator it is
// the whole path less its first character; the open flow has always done so, keep it.
std::string name_after_last_separator(const std::string& path);

// `path` without its last Len(name) characters: the directory, ending in its separator.
std::string directory_part(const std::string& path, const std::string& name);

// Gives the name the extension ".TX3" in place of its own.
void rename_to_tx3(std::string& name);

// `path` without the extension of its bare name (what follows its last point): "site.ves1" gives
// "site", "site" stays "site", "d.x/site" stays "d.x/site".
std::string without_extension(const std::string& path);

// `path` with its real extension replaced by `extension` (".TX3"), or given it when it has none.
std::string with_extension(const std::string& path, const std::string& extension);

// The absolute folder of a file's path, ending in its separator: where the converters write the
// files they name themselves, beside the file chosen.
std::string folder_of(const std::string& path);

// The last three characters, or the whole text when it is shorter.
std::string last_three(const std::string& name);

}  // namespace tellux
