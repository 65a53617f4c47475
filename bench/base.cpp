// Byte string and Base64 throughput; Base64 beside OpenSSL's block coder.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <string>
#include <vector>

#include "base/ByteString.h"
#include "base/QSBase.h"

namespace {

std::vector<unsigned char> Data(std::size_t n) {
  std::vector<unsigned char> v(n);
  unsigned x = 12345;
  for (auto& b : v) b = static_cast<unsigned char>((x = x * 1103515245u + 12345u) >> 16);
  return v;
}

void Base64EncodeOurs(benchmark::State& st) {
  const auto in = Data(static_cast<std::size_t>(st.range(0)));
  ByteString out;
  for (auto _ : st) {
    QSBase::base64Encode(in.data(), static_cast<int>(in.size()), &out);
    benchmark::DoNotOptimize(out.data());
  }
  st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * in.size()));
}

void Base64EncodeOpenssl(benchmark::State& st) {
  const auto in = Data(static_cast<std::size_t>(st.range(0)));
  for (auto _ : st) {
    // Same work as ours: an output buffer of the exact size per call.
    std::vector<unsigned char> out((in.size() + 2) / 3 * 4 + 1);
    EVP_EncodeBlock(out.data(), in.data(), static_cast<int>(in.size()));
    benchmark::DoNotOptimize(out.data());
  }
  st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * in.size()));
}

void Base64DecodeOurs(benchmark::State& st) {
  const auto raw = Data(static_cast<std::size_t>(st.range(0)));
  ByteString text, out;
  QSBase::base64Encode(raw.data(), static_cast<int>(raw.size()), &text);
  for (auto _ : st) {
    QSBase::base64Decode(text, &out);
    benchmark::DoNotOptimize(out.data());
  }
  st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * text.length()));
}

void Base64DecodeOpenssl(benchmark::State& st) {
  const auto raw = Data(static_cast<std::size_t>(st.range(0)));
  ByteString text;
  QSBase::base64Encode(raw.data(), static_cast<int>(raw.size()), &text);
  for (auto _ : st) {
    std::vector<unsigned char> out(static_cast<std::size_t>(text.length()) / 4 * 3 + 1);
    EVP_DecodeBlock(out.data(), text.data(), text.length());
    benchmark::DoNotOptimize(out.data());
  }
  st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * text.length()));
}

// Building a text from many small appends: the exact-size string against
// std::string's amortised growth.
void AppendOurs(benchmark::State& st) {
  for (auto _ : st) {
    ByteString s;
    for (int i = 0; i < st.range(0); ++i) s += "0123456789abcdef";
    benchmark::DoNotOptimize(s.data());
  }
  st.SetItemsProcessed(st.iterations() * st.range(0));
}

void AppendStd(benchmark::State& st) {
  for (auto _ : st) {
    std::string s;
    for (int i = 0; i < st.range(0); ++i) s += "0123456789abcdef";
    benchmark::DoNotOptimize(s.data());
  }
  st.SetItemsProcessed(st.iterations() * st.range(0));
}

void FormatOurs(benchmark::State& st) {
  ByteString s;
  for (auto _ : st) {
    s.format("%s - %s(%d)%s", "CSecureTunnel::Connect", "m_pSocketClient->Connect", 155, "\r\n");
    benchmark::DoNotOptimize(s.data());
  }
  st.SetItemsProcessed(st.iterations());
}

void FormatSnprintf(benchmark::State& st) {
  for (auto _ : st) {
    char buf[2048];
    const int n = snprintf(buf, sizeof buf, "%s - %s(%d)%s", "CSecureTunnel::Connect", "m_pSocketClient->Connect",
                           155, "\r\n");
    std::string s(buf, static_cast<std::size_t>(n));
    benchmark::DoNotOptimize(s.data());
  }
  st.SetItemsProcessed(st.iterations());
}

}  // namespace

// Pairs: "<case>/ours" beside "<case>/<reference>"; the size argument follows.
BENCHMARK(Base64EncodeOurs)->Name("base64_encode/ours")->Arg(64)->Arg(1024)->Arg(65536);
BENCHMARK(Base64EncodeOpenssl)->Name("base64_encode/openssl")->Arg(64)->Arg(1024)->Arg(65536);
BENCHMARK(Base64DecodeOurs)->Name("base64_decode/ours")->Arg(64)->Arg(1024)->Arg(65536);
BENCHMARK(Base64DecodeOpenssl)->Name("base64_decode/openssl")->Arg(64)->Arg(1024)->Arg(65536);
BENCHMARK(AppendOurs)->Name("append_16B/ours")->Arg(64);
BENCHMARK(AppendStd)->Name("append_16B/std")->Arg(64);
BENCHMARK(FormatOurs)->Name("format_trace_line/ours");
BENCHMARK(FormatSnprintf)->Name("format_trace_line/snprintf");
