// The MD5 message digest as published: 16 bytes for any byte string.
#ifndef COMPILER_BACKENDS_MD5_H
#define COMPILER_BACKENDS_MD5_H

void MD5(unsigned char* digest, unsigned char const* data, unsigned int length);

#endif
