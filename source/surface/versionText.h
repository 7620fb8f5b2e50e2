// The version string that documents carry in their first comment.
#pragma once

namespace drawing {

// Four numbers with points between them.
const char* moduleVersionText();

} // namespace drawing
