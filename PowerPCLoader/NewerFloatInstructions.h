// The platform's libm saves and sets the rounding mode with instructions
// of newer processors (mffscrni and its kin) that older ones execute as a
// plain mffs; qemu-ppc's 32-bit processors reject them. The loader carries
// them out itself when they trap.
#ifndef POWERPCLOADER_NEWERFLOATINSTRUCTIONS_H
#define POWERPCLOADER_NEWERFLOATINSTRUCTIONS_H

namespace ppcloader {

void EmulateNewerFloatInstructions();

}  // namespace ppcloader

#endif
