#include "backends/data/odbc/odbc_attributes.h"

#include <algorithm>

#include "util/text.h"

namespace paperway {
namespace {

constexpr std::string_view kHidden = "***";

// Behind an attribute: at the next ";", which means nothing within the braces of a value. There
// "}}" stands for a "}".
std::size_t endOfAttribute(std::string_view text, std::size_t begin) {
  std::size_t at = std::min(text.find_first_of("=;", begin), text.size());
  if (text.substr(at, 1) == "=") {
    at = std::min(text.find_first_not_of(" =", at), text.size());
    if (text.substr(at, 1) == "{") {
      at = text.find('}', at);
      while (at < text.size() && text.substr(at, 2) == "}}") at = text.find('}', at + 2);
    }
  }
  return std::min(text.find(';', at), text.size());
}

bool holds(std::string_view text, std::string_view word) {
  return findIgnoringCase(text, word, 0) != std::string_view::npos;
}

/// Also those of drivers: "sslpassword=…", "pqopt={password=…}", "ProxyPwd=…".
bool isSecret(std::string_view key, std::string_view value) {
  for (const std::string_view word : {"pwd", "password", "passphrase", "secret", "token"}) {
    if (holds(key, word) || holds(value, std::string(word) + "=")) return true;
  }
  return false;
}

std::string unbraced(std::string_view value) {
  if (!value.starts_with('{') || !value.ends_with('}') || value.size() < 2) {
    return std::string(value);
  }
  std::string text;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    text += value[i];
    if (value.substr(i, 2) == "}}") ++i;
  }
  return text;
}

}  // namespace

OdbcAttributes::OdbcAttributes(std::string_view connection) {
  const bool named = connection.substr(0, connection.find(';')).find('=') == connection.npos;
  text_ = (named ? "DSN=" : "") + std::string(connection);
  for (std::size_t at = 0; at < connection.size();) {
    const std::size_t end = endOfAttribute(connection, at);
    add(connection.substr(at, end - at));
    if (end < connection.size()) shown_ += ';';
    at = end + 1;
  }
  std::sort(secrets_.begin(), secrets_.end(),
            [](auto& one, auto& other) { return one.size() > other.size(); });
}

void OdbcAttributes::add(std::string_view attribute) {
  const std::size_t equals = attribute.find('=');
  const std::string_view value = equals == attribute.npos ? "" : attribute.substr(equals + 1);
  if (!isSecret(attribute.substr(0, equals), value)) {
    shown_ += attribute;
    return;
  }
  shown_ += attribute.substr(0, attribute.size() - value.size());
  shown_ += kHidden;
  keepSecret(value);
  keepSecret(trimBlanks(value));
  keepSecret(unbraced(trimBlanks(value)));
}

void OdbcAttributes::keepSecret(std::string_view value) {
  if (!value.empty()) secrets_.emplace_back(value);
}

std::string OdbcAttributes::withoutPasswords(std::string message) const {
  for (const std::string& secret : secrets_) {
    for (std::size_t at = 0; (at = message.find(secret, at)) != message.npos;) {
      message.replace(at, secret.size(), kHidden);
      at += kHidden.size();
    }
  }
  return message;
}

}  // namespace paperway
