#pragma once
// What goes over the renderer's link besides the scene itself. A connection
// carries one of two things:
// - a scene stream: the scene format, ended by END_OF_STREAM on a line of its
//   own; the renderer answers one line, ACCEPTED or REFUSED and the reason,
//   once it has taken or dropped the stream, and closes;
// - a query: the line SCENE_QUERY, answered with the scene's XML text, after
//   which the renderer closes.
// A stream that ends without its last line was cut off and is dropped.
#include <string_view>

namespace renderer {

inline constexpr std::string_view SCENE_QUERY = "?scene\n";
inline constexpr std::string_view END_OF_STREAM = "\n//---end of stream---\n";
inline constexpr std::string_view ACCEPTED = "accepted";
inline constexpr std::string_view REFUSED = "refused";

// The major version that the renderer announces.
inline constexpr int MAJOR_VERSION = 6;

}  // namespace renderer
