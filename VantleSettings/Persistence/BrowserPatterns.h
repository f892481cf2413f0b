#pragma once

#include "Foundation/Text.h"
#include "Foundation/TextList.h"
#include "Persistence/BrowserConfigProject.h"

#include <vector>

namespace Persistence
{

/// URL patterns by project root, in code-point order of the root.
using BrowserPatterns = Text::Map<TextList>;

/// `~/.claude/browser-patterns.json`; empty by default.
BrowserPatterns loadBrowserPatterns();
bool saveBrowserPatterns(const BrowserPatterns &patterns); ///< whether the file was written
void clearBrowserPatterns();

/// The patterns in the rows: one per line, trimmed. Rows without patterns are left out; of rows with the same
/// root the last wins.
BrowserPatterns browserPatterns(const std::vector<BrowserConfigProject> &rows);

} // namespace Persistence
