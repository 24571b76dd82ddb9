// The token numbers shared by the lexer and the grammar.
//
// QUORL_KEYWORDS lists the keyword table in token order: the entry at index
// i has the number 258 + i, so the order is the numbering and must never
// change. Each entry gives the lexer's enumerator, the grammar's token name
// and the text. Words that begin with "#" hold their numbers here but are
// found by the directive scanner; "#bad" and "#tag" are never delivered.
// ParserTokenCheck.cpp ties the grammar's numbers to this list.
#ifndef COMPILER_FRONTEND_LEXERTOKENS_H
#define COMPILER_FRONTEND_LEXERTOKENS_H

#define QUORL_KEYWORDS(X)                                  \
  X(kTokIf, TK_IF, "If")                         /* 258 */ \
  X(kTokSub, TK_SUB, "Sub")                      /* 259 */ \
  X(kTokFunction, TK_FUNCTION, "Function")       /* 260 */ \
  X(kTokUntil, TK_UNTIL, "Until")                /* 261 */ \
  X(kTokAs, TK_AS, "As")                         /* 262 */ \
  X(kTokEnd, TK_END, "End")                      /* 263 */ \
  X(kTokMod, TK_MOD, "Mod")                      /* 264 */ \
  X(kTokDim, TK_DIM, "Dim")                      /* 265 */ \
  X(kTokThen, TK_THEN, "Then")                   /* 266 */ \
  X(kTokElse, TK_ELSE, "Else")                   /* 267 */ \
  X(kTokWhile, TK_WHILE, "While")                /* 268 */ \
  X(kTokWend, TK_WEND, "Wend")                   /* 269 */ \
  X(kTokRaise, TK_RAISE, "Raise")                /* 270 */ \
  X(kTokFor, TK_FOR, "For")                      /* 271 */ \
  X(kTokException, TK_EXCEPTION, "Exception")    /* 272 */ \
  X(kTokArray, TK_ARRAY, "Array")                /* 273 */ \
  X(kTokOf, TK_OF, "Of")                         /* 274 */ \
  X(kTokNot, TK_NOT, "Not")                      /* 275 */ \
  X(kTokGoTo, TK_GOTO, "GoTo")                   /* 276 */ \
  X(kTokAnd, TK_AND, "And")                      /* 277 */ \
  X(kTokOr, TK_OR, "Or")                         /* 278 */ \
  X(kTokNil, TK_NIL, "Nil")                      /* 279 */ \
  X(kTokRem, TK_REM, "Rem")                      /* 280 */ \
  X(kTokNext, TK_NEXT, "Next")                   /* 281 */ \
  X(kTokElseIf, TK_ELSEIF, "ElseIf")             /* 282 */ \
  X(kTokTo, TK_TO, "To")                         /* 283 */ \
  X(kTokTrue, TK_TRUE, "True")                   /* 284 */ \
  X(kTokFalse, TK_FALSE, "False")                /* 285 */ \
  X(kTokByRef, TK_BYREF, "ByRef")                /* 286 */ \
  X(kTokNew, TK_NEW, "New")                      /* 287 */ \
  X(kTokSelect, TK_SELECT, "Select")             /* 288 */ \
  X(kTokCase, TK_CASE, "Case")                   /* 289 */ \
  X(kTokReturn, TK_RETURN, "Return")             /* 290 */ \
  X(kTokSelf, TK_SELF, "Self")                   /* 291 */ \
  X(kTokDo, TK_DO, "Do")                         /* 292 */ \
  X(kTokLoop, TK_LOOP, "Loop")                   /* 293 */ \
  X(kTokExit, TK_EXIT, "Exit")                   /* 294 */ \
  X(kTokRedim, TK_REDIM, "Redim")                /* 295 */ \
  X(kTokDownTo, TK_DOWNTO, "DownTo")             /* 296 */ \
  X(kTokStep, TK_STEP, "Step")                   /* 297 */ \
  X(kTokIsA, TK_ISA, "IsA")                      /* 298 */ \
  X(kTokMe, TK_ME, "Me")                         /* 299 */ \
  X(kTokPragmaDirective, TK_D_PRAGMA, "#pragma") /* 300 */ \
  X(kTokBadDirective, TK_D_BAD, "#bad")          /* 301 */ \
  X(kTokTagDirective, TK_D_TAG, "#tag")          /* 302 */ \
  X(kTokByVal, TK_BYVAL, "ByVal")                /* 303 */ \
  X(kTokOptional, TK_OPTIONAL, "Optional")       /* 304 */ \
  X(kTokExtends, TK_EXTENDS, "Extends")          /* 305 */ \
  X(kTokAssigns, TK_ASSIGNS, "Assigns")          /* 306 */ \
  X(kTokConst, TK_CONST, "Const")                /* 307 */ \
  X(kTokIfDirective, TK_D_IF, "#if")             /* 308 */ \
  X(kTokElseDirective, TK_D_ELSE, "#else")       /* 309 */ \
  X(kTokEndIfDirective, TK_D_ENDIF, "#endif")    /* 310 */ \
  X(kTokDeclare, TK_DECLARE, "Declare")          /* 311 */ \
  X(kTokClass, TK_CLASS, "Class")                /* 312 */ \
  X(kTokObject, TK_OBJECT, "Object")             /* 313 */ \
  X(kTokInterface, TK_INTERFACE, "Interface")    /* 314 */ \
  X(kTokImplements, TK_IMPLEMENTS, "Implements") /* 315 */ \
  X(kTokInherits, TK_INHERITS, "Inherits")       /* 316 */ \
  X(kTokProperty, TK_PROPERTY, "Property")       /* 317 */ \
  X(kTokPublic, TK_PUBLIC, "Public")             /* 318 */ \
  X(kTokPrivate, TK_PRIVATE, "Private")          /* 319 */ \
  X(kTokProtected, TK_PROTECTED, "Protected")    /* 320 */ \
  X(kTokShared, TK_SHARED, "Shared")             /* 321 */ \
  X(kTokNamespace, TK_NAMESPACE, "Namespace")    /* 322 */ \
  X(kTokModule, TK_MODULE, "Module")             /* 323 */ \
  X(kTokStatic, TK_STATIC, "Static")             /* 324 */ \
  X(kTokEvent, TK_EVENT, "Event")                /* 325 */ \
  X(kTokHandles, TK_HANDLES, "Handles")          /* 326 */ \
  X(kTokEach, TK_EACH, "Each")                   /* 327 */ \
  X(kTokIn, TK_IN, "In")                         /* 328 */ \
  X(kTokCatch, TK_CATCH, "Catch")                /* 329 */ \
  X(kTokTry, TK_TRY, "Try")                      /* 330 */ \
  X(kTokFinally, TK_FINALLY, "Finally")          /* 331 */ \
  X(kTokSuper, TK_SUPER, "Super")                /* 332 */ \
  X(kTokLib, TK_LIB, "Lib")                      /* 333 */ \
  X(kTokInline68k, TK_INLINE68K, "Inline68k")    /* 334 */ \
  X(kTokIs, TK_IS, "Is")                         /* 335 */ \
  X(kTokCall, TK_CALL, "Call")                   /* 336 */ \
  X(kTokAddressOf, TK_ADDRESSOF, "AddressOf")    /* 337 */ \
  X(kTokDelegate, TK_DELEGATE, "Delegate")       /* 338 */ \
  X(kTokParamArray, TK_PARAMARRAY, "ParamArray") /* 339 */ \
  X(kTokElseIfDirective, TK_D_ELSEIF, "#ElseIf") /* 340 */ \
  X(kTokSoft, TK_SOFT, "Soft")                   /* 341 */ \
  X(kTokContinue, TK_CONTINUE, "Continue")       /* 342 */ \
  X(kTokWith, TK_WITH, "With")                   /* 343 */ \
  X(kTokStructure, TK_STRUCTURE, "Structure")    /* 344 */ \
  X(kTokEnum, TK_ENUM, "Enum")                   /* 345 */ \
  X(kTokRaiseEvent, TK_RAISEEVENT, "RaiseEvent") /* 346 */ \
  X(kTokXor, TK_XOR, "Xor")                      /* 347 */ \
  X(kTokGlobal, TK_GLOBAL, "Global")             /* 348 */

enum LexerToken {
  kTokEndOfText = -1,  // the NUL at the end of the buffer
  kTokFirstKeyword = 258,
#define QUORL_KEYWORD_ENUMERATOR(enumerator, grammarName, text) enumerator,
  kTokBeforeKeywords = kTokFirstKeyword - 1,
  QUORL_KEYWORDS(QUORL_KEYWORD_ENUMERATOR)
#undef QUORL_KEYWORD_ENUMERATOR
      kTokBitwiseA = 349,  // grammar only: no text reaches it
  kTokBitwiseB = 350,      // grammar only
  kTokIdent = 351,         // identifier that is no keyword
  kTokInteger = 352,
  kTokString = 353,
  kTokAssign = 354,  // the "=" of an assignment
  kTokGE = 355,
  kTokLE = 356,
  kTokNE = 357,
  kTokFloat = 360,
  kTokEOL = 361,
  kTokBadString = 362,  // a string literal with no closing quote
  kTokColor = 363,
  kTokContinuation = 364,  // a lone "_" not followed by a line end
  kTokUnaryMinus = 365,    // grammar only: the precedence of prefix operators
};

static_assert(kTokGlobal == 348, "the keyword table ends at 348");

#endif
