#include <sys/socket.h>
#include <unistd.h>

#include "support/free_port.h"
#include "web_fixture.h"

namespace paperway {
namespace {

/// Hears of connections to a port of loopback.
class Listener {
 public:
  Listener() : socket_(bindToLoopback()) { listen(socket_.descriptor, 16); }
  ~Listener() { close(socket_.descriptor); }

  std::string address() const { return "http://127.0.0.1:" + std::to_string(socket_.port) + "/"; }
  bool heard() const {
    timeval now{};
    fd_set set;
    FD_ZERO(&set);
    FD_SET(socket_.descriptor, &set);
    return select(socket_.descriptor + 1, &set, nullptr, nullptr, &now) > 0;
  }

 private:
  const BoundSocket socket_;
};

class WebSafety : public WebWindow {
 protected:
  WebSafety() {
    std::filesystem::create_directory(path("site"));
    write("outside.txt", "OUTSIDE");
    write("site/beside.html", "BESIDE");
    write("site/style.css",
          "p:after{content:'STYLED'} i{background:url(" + listener_.address() + "c)}");
    std::filesystem::create_symlink(path("outside.txt"), path("site/link.html"));
  }

  std::string page(std::string body) const {
    for (std::size_t at = 0; (at = body.find("NET/", at)) != std::string::npos;) {
      body.replace(at, 4, listener_.address());
    }
    return write("site/page.html", body);
  }

  Listener listener_;
};

TEST_F(WebSafety, NothingIsFetchedButWhatLiesBeside) {
  const char* const bodies[] = {
      "<p>text<script>document.write('SCRIPTED');new Image().src='NET/s'</script>",
      "<p>text<img src='NET/i'><link rel=stylesheet href='NET/l'><i>x</i>",
      "<p>text<style>@import 'NET/a'; @font-face{font-family:f;src:url(NET/f)} "
      "p{font-family:f}</style>",
      "<p>text<iframe src='NET/f'></iframe><frame src='NET/g'><object data='NET/o'></object><embed "
      "src='NET/e'>",
      "<p>text<video src='NET/v' autoplay poster='NET/p'></video><audio src='NET/u' "
      "autoplay></audio>",
      "<p>text<link rel=prefetch href='NET/p'><link rel=preconnect href='NET/'><link "
      "rel=dns-prefetch href='NET/'>",
      "<p>text<meta http-equiv=refresh content='0;url=NET/r'>",
      "<p>text<meta http-equiv=refresh content='0;url=beside.html'>",
      "<p>text<form id=f action='NET/f'><input></form><body onload='f.submit()'><svg "
      "onload=\"location='NET/s'\"></svg>",
      "<p>text<iframe src='../outside.txt'></iframe><iframe src='link.html'></iframe><iframe "
      "src='beside.html'></iframe>",
      "<p>text<iframe src='file:///etc/passwd'></iframe><object "
      "data='file:///etc/passwd'></object><embed src='link.html'>",
      "<p>text<base href='NET/'><img src='relative.png'><table background='NET/b'>",
  };
  for (const char* body : bodies) {
    const std::string text = printed(page(body));
    EXPECT_EQ(text.substr(0, 4), "text") << body;
    for (const char* stranger : {"SCRIPTED", "OUTSIDE", "BESIDE", "root:"}) {
      EXPECT_EQ(text.find(stranger), std::string::npos) << body;
    }
    open({.Path1 = page(body)});
    EXPECT_FALSE(listener_.heard()) << body;
  }
}

TEST_F(WebSafety, AStyleSheetBesideThePageIsUsed) {
  const std::string text = printed(page("<link rel=stylesheet href='style.css'><p>text"));
  EXPECT_NE(text.find("textSTYLED"), std::string::npos) << text;
}

}  // namespace
}  // namespace paperway
