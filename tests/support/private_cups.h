#pragma once

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cups/cups.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "support/files.h"
#include "support/free_port.h"
#include "support/test_folder.h"

namespace paperway {

/// A print server of the test's own on loopback, which clients of this process find by themselves.
/// The user's own options go to a folder of the test.
class PrivateCups {
 public:
  static bool canRun() { return std::filesystem::exists("/usr/sbin/cupsd"); }

  PrivateCups() {
    for (const char* folder : {"spool", "cache", "state", "tmp", "log", "ppd"}) {
      std::filesystem::create_directories(folder_.path / folder);
    }
    write("cupsd.conf",
          "Listen " + server_ +
              "\nBrowsing Off\nWebInterface No\nErrorPolicy abort-job\n"
              "DefaultAuthType None\nLogLevel warn\nMaxJobs 0\n"
              "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
              "<Policy default>\n  <Limit All>\n    Order allow,deny\n"
              "    Allow all\n  </Limit>\n</Policy>\n");
    write("cups-files.conf",
          "ServerRoot " + at("") + "\nServerBin /usr/lib/cups\nRequestRoot " + at("spool") +
              "\nCacheDir " + at("cache") + "\nStateDir " + at("state") + "\nTempDir " + at("tmp") +
              "\nAccessLog " + at("log/access") + "\nErrorLog " + at("log/error") + "\nPageLog " +
              at("log/page") + "\nUser lp\nGroup lp\nSystemGroup root\n");
    std::filesystem::permissions(folder_.path, std::filesystem::perms(0755));
    setenv("CUPS_SERVERROOT", folder_.path.c_str(), 1);
    setenv("HOME", folder_.path.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", at("tmp").c_str(), 1);
    use();  // after which CUPS knows where the home is, and keeps it
    start();
  }

  ~PrivateCups() {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }

  PrivateCups(const PrivateCups&) = delete;
  PrivateCups& operator=(const PrivateCups&) = delete;

  /// Arguments of lpadmin behind the server, as a shell reads them.
  void administer(const std::string& arguments) {
    const std::string command = "lpadmin -h " + server_ + " " + arguments;
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
  }
  void addRawQueue(const std::string& name, const std::string& address) {
    administer("-p " + name + " -E -v socket://" + address + " 2>/dev/null");
  }
  /// A queue whose printer takes PDF.
  void addPdfQueue(const std::string& name, const std::string& address) {
    administer("-p " + name + " -E -v socket://" + address + "/?snmp=false -P " +
               PAPERWAY_SOURCE_DIR + "/tests/support/pdf_printer.ppd 2>/dev/null");
  }

  void signal(int number) const { kill(pid_, number); }
  /// Makes this one the server that clients find.
  void use() const {
    setenv("CUPS_SERVER", server_.c_str(), 1);
    cupsSetServer(server_.c_str());
  }

 private:
  std::string at(const std::string& name) const { return (folder_.path / name).string(); }
  void write(const std::string& name, const std::string& text) { std::ofstream(at(name)) << text; }

  void start() {
    std::string words[] = {"cupsd", "-f", "-c", at("cupsd.conf"), "-s", at("cups-files.conf")};
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ASSERT_EQ(posix_spawn(&pid_, "/usr/sbin/cupsd", nullptr, nullptr, arguments.data(), environ),
              0);
    for (int tries = 0; tries < 600; ++tries) {
      http_t* const http = httpConnect2(cupsServer(),
                                        ippPort(),
                                        nullptr,
                                        AF_UNSPEC,
                                        HTTP_ENCRYPTION_IF_REQUESTED,
                                        1,
                                        1000,
                                        nullptr);
      if (http != nullptr) return httpClose(http);
      usleep(50'000);
    }
    FAIL() << "The print server does not start: " << readFile(at("log/error"), "test");
  }

  TestFolder folder_;
  const std::string server_ = "127.0.0.1:" + std::to_string(freePort());
  pid_t pid_ = 0;
};

}  // namespace paperway
