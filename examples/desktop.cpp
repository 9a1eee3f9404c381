// A complete host with windows: shows a report file, or makes a picture of its first page.
//
//   desktop ledger.txt
//   desktop ledger.txt page.png

#include <exception>
#include <fstream>
#include <iostream>
#include <paperway/class1.h>
#include <paperway/desktop.h>
#include <stdexcept>
#include <string>

int main(int argc, char** argv) try {
  if (argc != 2 && argc != 3) {
    std::cerr << "usage: desktop REPORT [PICTURE.png]\n";
    return 2;
  }
  const bool draws = argc == 3;
  paperway::Desktop desktop({.screenless = draws});
  paperway::Class1 report(desktop.platform());
  report.Guid_comp1("1");  // the company whose settings hold
  report.Pagelenth = 12;
  report.PreviewReport(paperway::PreviewReportArguments::withEverything(argv[1]));
  if (draws) {
    std::ofstream picture(argv[2], std::ios::binary);
    picture << desktop.picture() << std::flush;
    if (!picture) throw std::runtime_error(std::string("Cannot write \"") + argv[2] + "\".");
  } else {
    desktop.run();
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "desktop: " << error.what() << "\n";
  return 1;
}
