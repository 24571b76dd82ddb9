// Where the parser hands each batch of finished functions while the parse
// goes on, so that their lines and local tables can go as soon as their
// code exists instead of living to the end of the compile.
#ifndef COMPILER_FRONTEND_FUNCTIONSINK_H
#define COMPILER_FRONTEND_FUNCTIONSINK_H

class TacBlock;

class FunctionSink {
 public:
  virtual ~FunctionSink() {}
  // `lines` holds whole functions, each from its Enter to its Leave; they
  // are freed when this returns. False when the code could not be made:
  // the compile then fails, its errors reported by the sink.
  virtual bool TakeFunctions(TacBlock* lines) = 0;
};

#endif
