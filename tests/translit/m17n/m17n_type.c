/* Types each line of standard input into a fresh context of an m17n input method and prints
 * the text it produced, one line per line. Usage: m17n_type LANG NAME < keys > text
 * Only ASCII keys are expected; each byte is one key. */
#include <m17n.h>
#include <stdio.h>
#include <string.h>

static void Append(MText *out, MText *piece) {
  if (piece && mtext_len(piece) > 0) mtext_cat(out, piece);
}

static void TypeLine(MInputMethod *im, const char *keys, FILE *sink) {
  MInputContext *ic = minput_create_ic(im, NULL);
  MText *out = mtext();
  for (const char *k = keys; *k; ++k) {
    char name[2] = {*k, 0};
    MSymbol key = msymbol(name);
    if (minput_filter(ic, key, NULL) == 0) {
      MText *produced = mtext();
      if (minput_lookup(ic, key, NULL, produced) < 0) mtext_cat_char(produced, (unsigned char)*k);
      Append(out, produced);
      m17n_object_unref(produced);
    }
  }
  /* An empty key commits what is still pending, as focusing out would. */
  minput_filter(ic, Mnil, NULL);
  MText *rest = mtext();
  minput_lookup(ic, Mnil, NULL, rest);
  Append(out, rest);
  Append(out, ic->preedit);
  m17n_object_unref(rest);
  unsigned char buffer[8192];
  int bytes = mconv_encode_buffer(Mcoding_utf_8, out, buffer, sizeof buffer - 1);
  buffer[bytes < 0 ? 0 : bytes] = 0;
  fprintf(sink, "%s\n", buffer);
  m17n_object_unref(out);
  minput_destroy_ic(ic);
}

int main(int argc, char **argv) {
  if (argc != 3) {
    fprintf(stderr, "usage: m17n_type LANG NAME < keys\n");
    return 2;
  }
  M17N_INIT();
  MInputMethod *im = minput_open_im(msymbol(argv[1]), msymbol(argv[2]), NULL);
  if (!im) {
    fprintf(stderr, "m17n_type: no input method %s-%s\n", argv[1], argv[2]);
    return 1;
  }
  char line[4096];
  while (fgets(line, sizeof line, stdin)) {
    line[strcspn(line, "\r\n")] = 0;
    TypeLine(im, line, stdout);
  }
  minput_close_im(im);
  M17N_FINI();
  return 0;
}
