#include "apps/paperway/window_options.h"

#include "apps/paperway/acts.h"

namespace paperway::command {

CLI::Option* addWindowOptions(CLI::App& command, WindowOptions& options) {
  command.add_flag("--dark", options.desk.dark, "Dark colours, whatever the desktop says");
  CLI::Option* picture =
      command
          .add_option("--picture", options.picture,
                      "Write a picture of the window instead of opening it; needs no display")
          ->type_name("OUT.png");
  command.add_option("--scale", options.desk.scale, "Scale of the picture")
      ->type_name("FACTOR")
      ->check(CLI::Range(1.0, 4.0))
      ->needs(picture);
  addActs(command, options.acts)->needs(picture);
  return picture;
}

void addPictureSize(CLI::App& command, WindowOptions& options, CLI::Option* picture,
                    LeastSize least) {
  const std::string text = std::to_string(least.width) + "," + std::to_string(least.height);
  command
      .add_option("--size", options.size,
                  "Width and height of the picture, unscaled; at least " + text)
      ->type_name("W,H")
      ->delimiter(',')
      ->expected(2)
      ->check(CLI::Range(200, 8000))
      ->needs(picture);
  command.parse_complete_callback([&options, least, text] {
    if (options.size.empty()) return;
    if (options.size[0] < least.width || options.size[1] < least.height) {
      throw CLI::ValidationError("--size", "the window is at least " + text);
    }
  });
}

}  // namespace paperway::command
