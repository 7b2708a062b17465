#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Halix {

// The message digest of RFC 1321, fed piece by piece. One object belongs to one thread at a time.
class MD5 {
 public:
  MD5() { init(); }

  // Begins a new message.
  void init();
  void reset() { init(); }

  // Adds bytes to the message. A length of 0 or less, a null pointer and everything fed after the end are ignored.
  void feed(std::string_view bytes);
  void feed(const unsigned char* bytes, std::int32_t length);

  // Ends the message; a second call does nothing.
  void finalize();

  // The digest as 32 lower-case hexadecimal digits, or as 16 bytes. Both end the message.
  std::string hex();
  std::array<unsigned char, 16> binary();

 private:
  static constexpr std::size_t kBlockSize = 64;

  void addBytes(const unsigned char* bytes, std::size_t length);
  void addBlock(const unsigned char* block);

  std::array<std::uint32_t, 4> m_state{};
  std::array<unsigned char, kBlockSize> m_pending{};
  std::size_t m_pendingSize = 0;
  std::uint64_t m_messageSize = 0;
  bool m_ended = false;
};

}  // namespace Halix
