// The four record parsers on arbitrary bytes: a record that parses is made
// again, byte for byte, from its version, type and data (the body-length
// field is not checked on input, so it is compared only when it is right).
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "libaibase/clalert.h"
#include "libaibase/clapplicationdata.h"
#include "libaibase/clhandshake.h"
#include "libaibase/clplain.h"

namespace {

// Same bytes apart from the body-length field (offset 2, 4 bytes).
bool SameButBodyLength(const ByteString& a, const ByteString& b) {
  if (a.length() != b.length() || a.length() < 6) return false;
  for (int i = 0; i < a.length(); ++i)
    if ((i < 2 || i >= 6) && a.data()[i] != b.data()[i]) return false;
  return true;
}

// Parses input; when it parses and its byte 0 is the class's own type,
// makes it again and compares.
template <typename Record, typename Parse, typename Make>
void Check(const ByteString& input, int ownType, int failCode, Parse parse, Make make) {
  Record in;
  const int rc = parse(in, input);
  if (rc == 0) {
    if (input.data()[0] != ownType) return;
    Record out;
    if (make(out, in) != 0 || !SameButBodyLength(out.GetRecord(), input)) std::abort();
  } else if (rc != failCode) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > (1u << 20)) return 0;
  const ByteString input(data, static_cast<int>(size));
  // Every parser takes any record whose lengths add up; only the class that
  // byte 0 names can make the same bytes again.
  Check<CLPlain>(
      input, 0x14, 130, [](CLPlain& r, const ByteString& b) { return r.ParsePlain(b); },
      [](CLPlain& r, CLPlain& in) { return r.MakePlain(static_cast<int>(in.GetVersion()), in.GetData()); });
  // Read in place: the same outcome, and the view is the data a copy holds.
  CLPlain copied, viewed;
  ByteReader view;
  const int rc = copied.ParsePlain(input);
  if (viewed.ParsePlain(input, &view) != rc ||
      (rc == 0 && ByteString(view.data(), static_cast<int>(view.remaining())) != copied.GetData()))
    std::abort();
  Check<CLAlert>(
      input, 0x15, 120, [](CLAlert& r, const ByteString& b) { return r.ParseAlert(b); },
      [](CLAlert& r, CLAlert& in) { return r.MakeAlert(static_cast<int>(in.GetVersion()), in.GetData()); });
  Check<CLApplicationData>(
      input, 0x17, 101, [](CLApplicationData& r, const ByteString& b) { return r.ParseApplicationData(b); },
      [](CLApplicationData& r, CLApplicationData& in) {
        return r.MakeApplicationData(static_cast<int>(in.GetVersion()), in.GetData());
      });
  Check<CLHandshake>(
      input, 0x16, 111, [](CLHandshake& r, const ByteString& b) { return r.ParseHandshake(b); },
      [](CLHandshake& r, CLHandshake& in) {
        return r.MakeHandshake(static_cast<int>(in.GetVersion()), static_cast<int>(in.GetHandshakeType()),
                               in.GetData());
      });
  return 0;
}
