// qva help [COMMAND]: the whole usage text, or the lines of one command
// followed by what the command does and how it exits.
#include <cstdio>
#include <cstring>
#include <string>

namespace {

struct Topic {
  const char* command;
  const char* text;
};

const Topic kTopics[] = {
    {"base64", "Encodes or decodes base64 from IN into OUT.\n"},
    {"pem", "Wraps DER in a PEM block of TYPE, or takes the DER out of one.\n"},
    {"hex", "Dumps a file in upper-case hexadecimal.\n"},
    {"verify",
     "Asks the validation server at HOST PORT about FILE, with FIRSTITEM as the first item.\n"
     "Prints the result and, when it is not 0, the general and detail texts in the terminal's code set.\n"
     "Exit status: 0 valid, 1 the server's verdict is against, 2 an error on the way.\n"},
    {"register",
     "Registers the certificate in FILE with the validation server at HOST PORT.\n"
     "Prints the result and texts as verify does; exit status 0, 1 refused, 2 an error.\n"},
    {"cert", "Prints a certificate; --verify checks its signature with the ISSUER certificate.\n"},
    {"crl", "Prints a CRL; --issuer checks it against CERT, --serial asks whether a serial is revoked.\n"},
    {"cms", "Prints a CMS message's kind and signers and verifies its signatures.\n"},
    {"ts", "Prints a time-stamp token.\n"},
    {"asn1",
     "Dumps a DER, BER or PEM file one element a line: offset, depth, header length, length,\n"
     "constructed or primitive, type and the value of a primitive. Exit status 0, 2 a bad element.\n"},
    {"hash",
     "Prints \"HEX  FILE\" for each FILE. A progress bar appears on stderr, when it is a terminal,\n"
     "for files over 64 MiB. Exit status 0, 2 when a file cannot be read.\n"},
    {"help", "Prints the usage of every command, or of one COMMAND.\n"},
    {"demo",
     "Makes a demo PKI, starts qva-server on 127.0.0.1, verifies each demo certificate and\n"
     "registers one through the library, and prints a table of expected and received verdicts.\n"},
};

}  // namespace

int RunHelpCommand(int argc, char** argv, const char* usage) {
  if (argc == 2) {
    std::fputs(usage, stdout);
    return 0;
  }
  if (argc != 3) {
    std::fputs("usage: qva help [COMMAND]\n", stderr);
    return 2;
  }
  // The command's lines of the usage text: those naming "qva COMMAND ".
  const std::string key = std::string("qva ") + argv[2] + " ";
  std::string lines;
  for (const char* p = usage; *p;) {
    const char* end = std::strchr(p, '\n');
    const std::string line(p, end ? static_cast<std::size_t>(end - p) : std::strlen(p));
    if ((line + " ").find(key) != std::string::npos) lines += line.substr(line.find("qva ")) + "\n";
    p = end ? end + 1 : p + line.size();
  }
  if (lines.empty()) {
    std::fprintf(stderr, "qva: no command %s\n", argv[2]);
    return 2;
  }
  std::fputs(("usage: " + lines).c_str(), stdout);
  for (const auto& t : kTopics)
    if (std::strcmp(t.command, argv[2]) == 0) std::printf("\n%s", t.text);
  return 0;
}
