/*
 * verify: send one validation request with the data of a file and print the
 * result code and both error texts.
 *
 *   verify HOST PORT ROAMINGID FIRSTITEM FILE
 */
#include <stdio.h>
#include <stdlib.h>

#include "qva/qva.h"

static unsigned char* read_file(const char* path, int* len) {
  FILE* f = fopen(path, "rb");
  unsigned char* data = NULL;
  long size;
  if (!f) return NULL;
  if (fseek(f, 0, SEEK_END) == 0 && (size = ftell(f)) >= 0 && fseek(f, 0, SEEK_SET) == 0) {
    data = (unsigned char*)malloc(size > 0 ? (size_t)size : 1);
    if (data && fread(data, 1, (size_t)size, f) != (size_t)size) {
      free(data);
      data = NULL;
    }
    *len = (int)size;
  }
  fclose(f);
  return data;
}

static void print_text(const char* label, int(QVA_CALL* get)(void*, char*, int*), void* client) {
  char buf[4096];
  int len = (int)sizeof buf;
  if (get(client, buf, &len) == 0) printf("%s: %.*s\n", label, len, buf);
}

int main(int argc, char** argv) {
  void* client = NULL;
  unsigned char* data;
  int len = 0, rc;

  if (argc != 6) {
    fprintf(stderr, "usage: %s HOST PORT ROAMINGID FIRSTITEM FILE\n", argv[0]);
    return 2;
  }
  data = read_file(argv[5], &len);
  if (!data) {
    fprintf(stderr, "cannot read %s\n", argv[5]);
    return 2;
  }
  rc = QVA_Initialize(&client, argv[1], atoi(argv[2]), argv[3]);
  if (rc != 0) {
    fprintf(stderr, "QVA_Initialize failed (%d)\n", rc);
    free(data);
    return 1;
  }
  rc = QVA_Verify(client, argv[4], data, len);
  printf("result: %d\n", rc);
  if (rc != 0) {
    print_text("general", QVA_GetGeneralErrorMsg, client);
    print_text("detail", QVA_GetDetailErrorMsg, client);
  }
  QVA_Release(client);
  free(data);
  return rc == 0 ? 0 : 1;
}
