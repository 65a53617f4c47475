// The EnvelopedData part of `qva cms`: its recipients and, given the
// recipient's certificate and key, its content.
#pragma once

#include "base/ByteString.h"

// PrintEnvelopedData: prints the EnvelopedData of der (a ContentInfo or a
// bare EnvelopedData): version, each RecipientInfo (kind, version, how the
// recipient is named, algorithms), the content algorithm and size; with
// certPath and keyPath (DER or PEM; the key PKCS#8) it opens the envelope
// and prints which entry was ours and the content in hex. Returns 0, 1 when
// the envelope does not decode or open (the trace on stderr), 2 when a file
// cannot be read.
int PrintEnvelopedData(const ByteString& der, const char* certPath, const char* keyPath);
