/* The grammar of the language, the input of an LALR(1) parser generator.
 *
 * There is no syntax tree: every rule's action calls a Compile... action,
 * which builds three-address code as a side effect, and every value is a
 * SemBase*. Declarations were collected by the declaration scanner before
 * this parse, which is why a use may precede a declaration.
 *
 * "check" in the comments below is CheckDelegate(): the delegate may cancel
 * the parse at any expression, and without a delegate the parse stops at
 * the first error.
 *
 * Error recovery has two rules: statements error, and the same for the
 * top level's items. A syntax error inside a statement list resumes at the
 * next statement of that list, one between top-level items at the next
 * item; anywhere else the parse stops after one report.
 *
 * Token numbers are fixed by the lexer's table (LexerTokens.h);
 * ParserTokenCheck.cpp fails to compile when the two disagree.
 */

%{
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/ConditionalCompilation.h"
#include "Compiler/Frontend/Declarations.h"
#include "Compiler/Frontend/Enums.h"
#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ExternalDeclarations.h"
#include "Compiler/Frontend/FlowControlStructures.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/LabelUtilities.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/Modules.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ParserScopes.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/Pragmas.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/Structures.h"
#include "Compiler/Frontend/SyntaxRecovery.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"

#define yylex GetToken
/* Both stacks live on the frame of yyparse and never grow. */
#define YYINITDEPTH kParserStackDepth
#define YYMAXDEPTH kParserStackDepth
#define YY_(text) ParserMessage(text)
#define CHECK \
  do { \
    if (CheckDelegate()) YYABORT; \
  } while (0)
/* The value of the token the parser has read ahead, if it has. */
#define LOOKAHEAD_VALUE (yychar == YYEMPTY ? nullptr : yylval)

namespace {

SemBase* Word(char const* text) { return SemIdentifier::New(text); }

SemBase* IntLiteral(long value) {
  return SemValue::New(CurrentTLP()->GetLiteral(value, kSInt32Type), nullptr);
}

SemBase* NilLiteral() {
  return SemValue::New(
      CurrentTLP()->GetLiteral(kIRZeroValue, IRDataType(kNilType)), nullptr);
}

// The stray-terminator report: `end` is nil when the block was closed by a
// terminator of another block; the error stands at the block's opening.
void CheckTerminator(SemBase* end, CompileErrorCode code, SemBase* head) {
  if (end) return;
  Error(code, head->Location());
  NoteBlockClosedByAnotherEnd();
}

}  // namespace
%}

%code requires {
class SemBase;
}

%define api.value.type {SemBase*}

%token TK_IF 258 "If"
%token TK_SUB 259 "Sub"
%token TK_FUNCTION 260 "Function"
%token TK_UNTIL 261 "Until"
%token TK_AS 262 "As"
%token TK_END 263 "End"
%token TK_MOD 264 "Mod"
%token TK_DIM 265 "Dim"
%token TK_THEN 266 "Then"
%token TK_ELSE 267 "Else"
%token TK_WHILE 268 "While"
%token TK_WEND 269 "Wend"
%token TK_RAISE 270 "Raise"
%token TK_FOR 271 "For"
%token TK_EXCEPTION 272 "Exception"
%token TK_ARRAY 273 "Array"
%token TK_OF 274 "Of"
%token TK_NOT 275 "Not"
%token TK_GOTO 276 "GoTo"
%token TK_AND 277 "And"
%token TK_OR 278 "Or"
%token TK_NIL 279 "Nil"
%token TK_REM 280 "Rem"
%token TK_NEXT 281 "Next"
%token TK_ELSEIF 282 "ElseIf"
%token TK_TO 283 "To"
%token TK_TRUE 284 "True"
%token TK_FALSE 285 "False"
%token TK_BYREF 286 "ByRef"
%token TK_NEW 287 "New"
%token TK_SELECT 288 "Select"
%token TK_CASE 289 "Case"
%token TK_RETURN 290 "Return"
%token TK_SELF 291 "Self"
%token TK_DO 292 "Do"
%token TK_LOOP 293 "Loop"
%token TK_EXIT 294 "Exit"
%token TK_REDIM 295 "Redim"
%token TK_DOWNTO 296 "DownTo"
%token TK_STEP 297 "Step"
%token TK_ISA 298 "IsA"
%token TK_ME 299 "Me"
%token TK_D_PRAGMA 300 "#pragma"
%token TK_D_BAD 301 "#bad"
%token TK_D_TAG 302 "#tag"
%token TK_BYVAL 303 "ByVal"
%token TK_OPTIONAL 304 "Optional"
%token TK_EXTENDS 305 "Extends"
%token TK_ASSIGNS 306 "Assigns"
%token TK_CONST 307 "Const"
%token TK_D_IF 308 "#if"
%token TK_D_ELSE 309 "#else"
%token TK_D_ENDIF 310 "#endif"
%token TK_DECLARE 311 "Declare"
%token TK_CLASS 312 "Class"
%token TK_OBJECT 313 "Object"
%token TK_INTERFACE 314 "Interface"
%token TK_IMPLEMENTS 315 "Implements"
%token TK_INHERITS 316 "Inherits"
%token TK_PROPERTY 317 "Property"
%token TK_PUBLIC 318 "Public"
%token TK_PRIVATE 319 "Private"
%token TK_PROTECTED 320 "Protected"
%token TK_SHARED 321 "Shared"
%token TK_NAMESPACE 322 "Namespace"
%token TK_MODULE 323 "Module"
%token TK_STATIC 324 "Static"
%token TK_EVENT 325 "Event"
%token TK_HANDLES 326 "Handles"
%token TK_EACH 327 "Each"
%token TK_IN 328 "In"
%token TK_CATCH 329 "Catch"
%token TK_TRY 330 "Try"
%token TK_FINALLY 331 "Finally"
%token TK_SUPER 332 "Super"
%token TK_LIB 333 "Lib"
%token TK_INLINE68K 334 "Inline68k"
%token TK_IS 335 "Is"
%token TK_CALL 336 "Call"
%token TK_ADDRESSOF 337 "AddressOf"
%token TK_DELEGATE 338 "Delegate"
%token TK_PARAMARRAY 339 "ParamArray"
%token TK_D_ELSEIF 340 "#ElseIf"
%token TK_SOFT 341 "Soft"
%token TK_CONTINUE 342 "Continue"
%token TK_WITH 343 "With"
%token TK_STRUCTURE 344 "Structure"
%token TK_ENUM 345 "Enum"
%token TK_RAISEEVENT 346 "RaiseEvent"
%token TK_XOR 347 "Xor"
%token TK_GLOBAL 348 "Global"
%token TK_BITWISE_A 349
%token TK_BITWISE_B 350
%token TK_IDENT 351
%token TK_INTEGER 352
%token TK_STRING 353
%token TK_ASSIGN 354
%token TK_GE 355 ">="
%token TK_LE 356 "<="
%token TK_NE 357 "<>"
%token TK_UNUSED_358 358
%token TK_UNUSED_359 359
%token TK_FLOAT 360
%token TK_EOL 361
%token TK_BADSTRING 362
%token TK_COLOR 363
%token TK_CONTINUATION 364
%token TK_UMINUS 365

/* From loosest to tightest. */
%left "Or" "Xor"
%left "And"
%left TK_BITWISE_A TK_BITWISE_B
%left '=' '<' '>' "<=" ">=" "<>" "Is"
%left '+' '-'
%left '*' '/' '\\' "Mod"
%precedence TK_UMINUS "Not"
%right '^'
%precedence "IsA"

/* "Delegate" opening a module member is a delegate declaration, never a
   property named Delegate (a reserved word anyway): the shift is meant. */
%expect 1

%start program

%%

/* ---------------------------------------------------- program, top level */

program
  : %empty     { CompileProgram(); $$ = nullptr; }
  | top_items  { CompileProgram(); $$ = nullptr; }
  ;

top_item
  : sub_def
  | func_def
  | class_def
  | interface_def
  | module_def
  | statement
  ;

/* A syntax error between top-level items resumes at the next line, so
   that one run reports the errors of every line; one inside a class or
   module ends the parse (ResumeAfterTopLevelError). */
top_items
  : top_item                    { CollectTopItem($1, LOOKAHEAD_VALUE); $$ = nullptr; }
  | top_items top_item          { CollectTopItem($2, LOOKAHEAD_VALUE); $$ = nullptr; }
  | error TK_EOL                { $$ = nullptr; if (!ResumeAfterTopLevelError()) YYABORT; yyerrok; }
  | top_items error TK_EOL      { $$ = $1; if (!ResumeAfterTopLevelError()) YYABORT; yyerrok; }
  ;

/* ---------------------------------------------------------------- methods */

sub_def
  : opt_shared "Sub" method_name opt_alias
      { $$ = OpenMethodScope($3, $1); }
    '(' parameter_list ')' opt_handles TK_EOL
      { CompileFunction($3, $4, $7, nullptr, $9, $1); }
    method_body "End" "Sub" TK_EOL
      { $$ = CompileEndFunction($3, $5, $7, $9, $12); CHECK; }
  ;

func_def
  : opt_shared "Function" method_name opt_alias
      { $$ = OpenMethodScope($3, $1); }
    '(' parameter_list ')' "As" type_spec opt_handles TK_EOL
      { CompileFunction($3, $4, $7, $10, $11, $1); }
    method_body "End" "Function" TK_EOL
      { $$ = CompileEndFunction($3, $5, $7, $11, $14); CHECK; }
  ;

method_name
  : TK_IDENT
  | "Property"  { $$ = Word("Property"); }
  ;

method_body
  : opt_statements exception_handlers opt_finally
      { $$ = ConcatCode(ConcatCode($1, $2), PlaceMethodFinally($3)); }
  ;

/* ------------------------------------------------------------------ types */

type_spec
  : type_name
  | type_name array_rank  { $$ = ArrayType($1, $2); }
  ;

opt_event_return
  : %empty          { $$ = nullptr; }
  | "As" type_spec  { $$ = $2; }
  ;

type_name
  : type_prefix TK_IDENT  { $$ = CompileType($1, $2); }
  | "Object"              { $$ = BasicType(kTokObject); }
  | "Class"               { $$ = BasicType(kTokClass); }
  ;

type_prefix
  : %empty                    { $$ = nullptr; }
  | type_prefix TK_IDENT '.'  { $$ = ConcatList($1, $2); }
  ;

array_rank
  : '(' rank_commas ')'  { $$ = ArrayRank($2); }
  ;

rank_commas
  : %empty           { $$ = nullptr; }
  | rank_commas ','  { $$ = ConcatList($1, SemValue::New(gTacOne, nullptr)); }
  ;

/* ------------------------------------------------------------- parameters */

param_type
  : "As" type_name             { $$ = $2; }
  | array_rank "As" type_name  { $$ = ArrayType($3, $1); }
  ;

param_modifier
  : "ByVal"       { $$ = Word("BYVAL"); }
  | "ByRef"       { $$ = Word("BYREF"); }
  | "Assigns"     { $$ = Word("ASSIGNS"); }
  | "Extends"     { $$ = Word("EXTENDS"); }
  | "ParamArray"  { $$ = Word("PARAMARRAY"); }
  | "Optional"    { $$ = Word("OPTIONAL"); }
  ;

param_modifiers
  : %empty                          { $$ = nullptr; }
  | param_modifiers param_modifier  { $$ = ConcatList($1, $2); }
  ;

opt_param_default
  : %empty           { $$ = nullptr; }
  | '=' const_value  { $$ = $2; }
  ;

parameter
  : param_modifiers declared_name param_type opt_param_default
      { $$ = CompileParameter($1, $2, $3, $4); }
  ;

parameter_list
  : %empty                        { $$ = nullptr; }
  | parameter
  | parameter_list ',' parameter  { $$ = ConcatSemBase($1, $3); }
  ;

/* ------------------------------- exception handlers in method bodies, Try */

exception_handlers
  : %empty                                { $$ = nullptr; }
  | exception_handlers exception_handler  { $$ = ConcatCode($1, $2); }
  ;

exception_handler
  : exception_keyword TK_EOL block
      { $$ = CompileExceptionBlock($3, nullptr, nullptr); }
  | exception_keyword TK_IDENT TK_EOL
      { $$ = OpenCatchScope($2, nullptr); }
    block
      { $$ = CompileExceptionBlock($5, $4, nullptr); CloseScope(); }
  | exception_keyword TK_IDENT "As" type_name TK_EOL
      { $$ = OpenCatchScope($2, $4); }
    block
      { $$ = CompileExceptionBlock($7, $6, $4); CloseScope(); }
  ;

exception_keyword
  : "Exception"
  | "Catch"
  ;

finally_block
  : "Finally" TK_EOL
      { EnterFinallyBlock(); }
    block
      { $$ = $4 ? MakeDefaultExceptionHandler($4) : nullptr; }
  ;

opt_finally
  : %empty  { $$ = nullptr; }
  | finally_block
  ;

/* ------------------------------------------ declared names, Dim, Const */

declared_name
  : TK_IDENT
  | "Me"           { $$ = CompileMeParam(); }
  | reserved_name  { $$ = CompileReservedIdentifier(); }
  ;

reserved_name
  : "Catch" | "Each" | "Finally" | "In" | "Lib" | "Super" | "Try" | "Call"
  | "Object" | "AddressOf" | "Delegate"
  ;

dim_variable
  : declared_name opt_bounds  { $$ = ConcatList($1, $2); }
  ;

dim_variables
  : dim_variable
  | dim_variables ',' dim_variable  { $$ = ConcatList($1, $3); }
  ;

opt_bounds_list
  : %empty  { $$ = IntLiteral(-1); }
  | expr_list
  ;

opt_bounds
  : %empty                   { $$ = nullptr; }
  | '(' opt_bounds_list ')'  { $$ = $2; }
  ;

const_value
  : TK_INTEGER
  | TK_FLOAT
  | '-' TK_INTEGER  { $$ = CompileNegation($2); }
  | '-' TK_FLOAT    { $$ = CompileNegation($2); }
  | TK_COLOR
  | TK_STRING
  | "True"
  | "False"
  | TK_IDENT        { $$ = CompileConstVal($1); CHECK; }
  | "Nil"           { $$ = NilLiteral(); }
  ;

const_statement
  : "Const" TK_IDENT '=' const_value TK_EOL  { $$ = CompileConst($2, $4); }
  ;

dim_clause
  : dim_variables "As" type_name
      { $$ = CompileDeclaration($1, $3, nullptr); }
  | dim_variables "As" "New" type_name opt_paren_args
      { $$ = CompileNewObjectDeclaration($1, $4, $5); }
  | dim_variables "As" type_name '=' expr
      { $$ = CompileDeclaration($1, $3, $5); }
  ;

dim_clauses
  : dim_clause
  | dim_clauses ',' dim_clause  { $$ = ConcatCode($1, $3); }
  ;

dim_declaration
  : dim_clauses  { $$ = FilterTemporaryVariables($1); }
  ;

dim_statement
  : "Dim" dim_declaration TK_EOL  { $$ = CompileDebugEntry($2); }
  | "Static"
      { EnterStaticStorageMode(); }
    dim_declaration TK_EOL
      { $$ = CompileStaticDeclaration($3); }
  ;

/* --------------------------------------------------- external declarations */

declare_statement
  : "Soft"
      { EnterWeakDeclarationMode(); }
    "Declare" extern_method TK_EOL
      { $$ = $4; }
  | "Declare" extern_method TK_EOL  { $$ = $2; }
  ;

extern_method
  : "Sub" TK_IDENT
      { OpenSignatureScope($2); }
    "Lib" lib_name opt_alias opt_extern_params opt_inline68k
      { CloseScope(); $$ = CompileExternDeclaration($2, $5, $6, $7, nullptr); }
  | "Function" TK_IDENT
      { OpenSignatureScope($2); }
    "Lib" lib_name opt_alias opt_extern_params opt_extern_return opt_inline68k
      { CloseScope(); $$ = CompileExternDeclaration($2, $5, $6, $7, $8); }
  ;

lib_name
  : TK_STRING
  | TK_IDENT   { $$ = CompileExternLib($1); }
  ;

opt_alias
  : %empty              { $$ = nullptr; }
  | TK_IDENT TK_STRING  { $$ = CompileExternAlias($1, $2); }
  ;

opt_extern_params
  : %empty                  { $$ = nullptr; }
  | '(' parameter_list ')'  { $$ = $2; }
  ;

opt_extern_return
  : %empty          { $$ = nullptr; Error(kErrorExternNeedsReturn); }
  | "As" type_spec  { $$ = $2; }
  ;

opt_inline68k
  : %empty  { $$ = nullptr; }
  | inline68k
  ;

inline68k
  : "Inline68k" '(' TK_STRING ')'  { $$ = nullptr; }
  ;

/* ---------------------------------------------------------------- classes */

class_def
  : "Class" TK_IDENT TK_EOL
      { $$ = CompileClass($2); }
    opt_class_members "End" "Class" TK_EOL
      { $$ = CompileEndClass($2, $4, $5); }
  ;

opt_class_members
  : %empty  { $$ = nullptr; }
  | class_members
  ;

class_members
  : class_member
  | class_members class_member  { $$ = ConcatList($1, $2); }
  ;

class_member
  : opt_scope scoped_member  { $$ = $2; }
  | inherits_line
  | implements_line
  ;

scoped_member
  : property_member
  | const_statement
  | sub_def
  | func_def
  | event_decl
  | declare_statement
  | structure_def
  ;

property_member
  : simple_property
  | property_block
  ;

opt_property_default
  : %empty           { $$ = nullptr; }
  | '=' const_value  { $$ = $2; }
  ;

simple_property
  : opt_shared opt_dim declared_name opt_bounds "As" type_name
    opt_property_default TK_EOL
      { $$ = FilterTemporaryVariables(CompileProperty($3, $4, $6, $7, $1)); }
  ;

property_block
  : opt_shared "Property" TK_IDENT "As" type_name TK_EOL
      { CompilePropertyBlock($3); }
    accessors "End" "Property" TK_EOL
      { $$ = CompileEndPropertyBlock($3, $8); }
  ;

accessors
  : %empty              { $$ = nullptr; }
  | accessors accessor  { $$ = ConcatSemBase($1, $2); }
  ;

accessor
  : TK_IDENT TK_EOL
      { $$ = CompilePropertyAccessor($1); }
    method_body "End" TK_IDENT TK_EOL
      { $$ = CompileEndPropertyAccessor($1, $6, $3, $4); CHECK; }
  ;

opt_scope
  : %empty       { $$ = nullptr; CompileScope(kTokPublic); }
  | "Global"     { $$ = CompileScope(kTokGlobal); }
  | "Public"     { $$ = CompileScope(kTokPublic); }
  | "Private"    { $$ = CompileScope(kTokPrivate); }
  | "Protected"  { $$ = CompileScope(kTokProtected); }
  ;

opt_shared
  : %empty    { $$ = nullptr; }
  | "Shared"  { $$ = Word("SHARED"); }
  ;

opt_dim
  : %empty  { $$ = nullptr; }
  | "Dim"   { $$ = nullptr; }
  ;

inherits_line
  : "Inherits" type_name TK_EOL  { $$ = CompileInheritance($2, nullptr); }
  ;

implements_line
  : "Implements" type_name TK_EOL  { $$ = CompileImplements($2); }
  ;

opt_handles
  : %empty              { $$ = nullptr; }
  | "Handles" "Event"   { $$ = SemValue::New(gTacTrue, nullptr); }
  | "Handles" TK_IDENT  { $$ = $2; }
  ;

event_decl
  : "Event" TK_IDENT
      { OpenSignatureScope($2); }
    '(' parameter_list ')' opt_event_return TK_EOL
      { $$ = CompileEvent($2, $5, $7, nullptr); CloseScope(); }
  ;

/* ------------------------------------------------ interfaces and delegates */

interface_def
  : "Interface" TK_IDENT TK_EOL
      { OpenInterfaceScope($2); }
    opt_interface_members "End" "Interface" TK_EOL
      { $$ = CompileInterface($2, nullptr); }
  ;

opt_interface_members
  : %empty  { $$ = nullptr; }
  | interface_members
  ;

interface_members
  : interface_member
  | interface_members interface_member  { $$ = ConcatList($1, $2); }
  ;

interface_member
  : method_signature
  | inherits_line
  ;

method_signature
  : sub_signature
  | func_signature
  ;

sub_signature
  : "Sub" method_name
      { OpenSignatureScope($2); }
    '(' parameter_list ')' TK_EOL
      { $$ = $2; CloseScope(); }
  ;

func_signature
  : "Function" method_name
      { OpenSignatureScope($2); }
    '(' parameter_list ')' "As" type_spec TK_EOL
      { $$ = $2; CloseScope(); }
  ;

delegate_decl
  : "Delegate" method_signature  { $$ = CompileDelegate($2); }
  ;

/* ------------------------------------------- structures and enumerations */

opt_structure_fields
  : %empty  { $$ = nullptr; }
  | structure_fields
  ;

structure_fields
  : structure_field
  | structure_fields structure_field  { $$ = ConcatList($1, $2); }
  ;

structure_field
  : TK_IDENT opt_field_count "As" type_name opt_field_size TK_EOL
      { $$ = CompileStructureField($1, $2, $4, $5); }
  ;

opt_field_count
  : %empty  { $$ = nullptr; }
  | field_count
  ;

field_count
  : '(' TK_INTEGER ')'  { $$ = $2; }
  ;

opt_field_size
  : %empty          { $$ = nullptr; }
  | '*' TK_INTEGER  { $$ = $2; }
  ;

structure_def
  : "Structure" TK_IDENT TK_EOL
      { $$ = CompileStructure($2); }
    opt_structure_fields "End" "Structure" TK_EOL
      { $$ = CompileEndStructure($2, $4, $5); }
  ;

opt_enum_values
  : %empty  { $$ = nullptr; }
  | enum_values
  ;

enum_values
  : enum_value
  | enum_values enum_value  { $$ = ConcatList($1, $2); }
  ;

enum_value
  : TK_IDENT opt_enum_init TK_EOL  { $$ = CompileEnumValue($1, $2); }
  ;

opt_enum_init
  : %empty                 { $$ = nullptr; }
  | '=' const_value        { $$ = $2; }
  | TK_ASSIGN const_value  { $$ = $2; }
  ;

opt_enum_base
  : %empty          { $$ = nullptr; }
  | "As" type_name  { $$ = $2; }
  ;

enum_def
  : "Enum" TK_IDENT opt_enum_base TK_EOL
      { CompileEnum($2, $3); }
    opt_enum_values "End" "Enum" TK_EOL
      { $$ = CompileEndEnum($2); }
  ;

/* ---------------------------------------------------------------- modules */

module_def
  : "Module" TK_IDENT TK_EOL
      { $$ = CompileModule($2); }
    opt_module_members "End" "Module" TK_EOL
      { $$ = CompileEndModule($4, $5); }
  ;

opt_module_members
  : %empty  { $$ = nullptr; }
  | module_members
  ;

module_members
  : module_member
  | module_members module_member  { $$ = ConcatList($1, $2); }
  ;

module_member
  : opt_scope module_item  { $$ = $2; }
  ;

module_item
  : module_def
  | class_def
  | interface_def
  | structure_def
  | enum_def
  | delegate_decl
  | sub_def
  | func_def
  | property_member
  | const_statement
  | declare_statement
  ;

/* ------------------------------------------------------------ expressions */

class_ref
  : "Class" type_name         { $$ = CompileClassReference($2); }
  | "Class" "Of" object_ref   { $$ = CompileLookupClassOfExpression($3); }
  ;

expr
  : TK_INTEGER        { CHECK; }
  | TK_FLOAT          { CHECK; }
  | TK_STRING         { $$ = CompileStringLiteral($1); CHECK; }
  | "True"            { CHECK; }
  | "False"           { CHECK; }
  | TK_COLOR          { CHECK; }
  | "Nil"             { $$ = NilLiteral(); CHECK; }
  | object_ref        { CHECK; }
  | expr "And" expr   { $$ = CompileAnd($1, $3); CHECK; }
  | expr "Or" expr    { $$ = CompileOr($1, $3); CHECK; }
  | expr '>' expr     { $$ = CompileBinop($1, kOpGreater, $3); CHECK; }
  | expr '<' expr     { $$ = CompileBinop($1, kOpLess, $3); CHECK; }
  | expr '=' expr     { $$ = CompileBinop($1, kOpEqual, $3); CHECK; }
  | expr ">=" expr    { $$ = CompileBinop($1, kOpGreaterEqual, $3); CHECK; }
  | expr "<=" expr    { $$ = CompileBinop($1, kOpLessEqual, $3); CHECK; }
  | expr "<>" expr    { $$ = CompileBinop($1, kOpNotEqual, $3); CHECK; }
  | expr '+' expr     { $$ = CompileBinop($1, kOpAdd, $3); CHECK; }
  | expr '-' expr     { $$ = CompileBinop($1, kOpSubtract, $3); CHECK; }
  | expr '*' expr     { $$ = CompileBinop($1, kOpMultiply, $3); CHECK; }
  | expr '/' expr     { $$ = CompileBinop($1, kOpDivide, $3); CHECK; }
  | expr '\\' expr    { $$ = CompileBinop($1, kOpIntegerDivide, $3); CHECK; }
  | expr "Mod" expr   { $$ = CompileBinop($1, kOpModulo, $3); CHECK; }
  | expr '^' expr     { $$ = CompileBinop($1, kOpPower, $3); CHECK; }
  | expr "Xor" expr   { $$ = CompileXor($1, $3); CHECK; }
  | expr TK_BITWISE_A expr
      { $$ = CompileBitwiseOperation($1, $3, kTacBitShiftLeft); CHECK; }
  | expr TK_BITWISE_B expr
      { $$ = CompileBitwiseOperation($1, $3, kTacBitShiftRight); CHECK; }
  | expr "Is" expr    { $$ = CompileIs($1, $3); CHECK; }
  | '-' expr %prec TK_UMINUS  { $$ = CompileNegation($2); CHECK; }
  | "Not" expr        { $$ = CompileNot($2); CHECK; }
  | expr "IsA" type_name      { $$ = CompileIsA($1, $3); }
  | "New" type_name opt_paren_args  { $$ = CompileNew($2, $3, true); }
  | class_ref         { CHECK; }
  | paren_args        { CHECK; }
  | address_of        { CHECK; }
  | raise_event_expr  { CHECK; }
  | TK_BADSTRING      { Error(kErrorUnterminatedString, $1->Location()); CHECK; }
  ;

object_ref
  : TK_IDENT opt_paren_args
      { $$ = CompileLookup($1, $2, nullptr, kRequireFunctionResult,
                          kErrorUnknownName, false); }
  | object_ref '.' TK_IDENT opt_paren_args
      { $$ = CompileScopeLookup($1, $3, $4, nullptr, kRequireFunctionResult); }
  | "Self"  { $$ = CompileSelf(); }
  | "Me"    { $$ = CompileMe(); }
  | "Super" { $$ = CompileSuper(); }
  | "Array" paren_args
      { $$ = CompileArrayFactory($2, IRDataType()); CHECK; }
  ;

expr_list
  : expr
  | expr_list ',' expr  { $$ = ConcatList($1, $3); }
  ;

opt_expr_list
  : %empty  { $$ = nullptr; }
  | expr_list
  ;

opt_expr
  : %empty  { $$ = nullptr; }
  | expr
  ;

paren_args
  : '(' opt_expr_list ')'  { $$ = $2; }
  ;

opt_paren_args
  : %empty  { $$ = nullptr; }
  | paren_args
  ;

address_of
  : "AddressOf" TK_IDENT                 { $$ = CompileAddressOf($2); }
  | "AddressOf" object_ref '.' TK_IDENT  { $$ = CompileAddressOf($2, $4); }
  ;

/* ------------------------------------------------------------- assignment */

assignment
  : TK_IDENT opt_paren_args TK_ASSIGN expr
      { $$ = CompileLookup($1, $2, $4, kProhibitFunctionResult,
                          kErrorUnknownName, false); }
  | object_ref '.' TK_IDENT opt_paren_args TK_ASSIGN expr
      { $$ = CompileScopeLookup($1, $3, $4, $6, kProhibitFunctionResult); }
  ;

/* ------------------------------------------------------------------ loops */

for_statement
  : "For"
      { OpenBlockScope(); }
    for_kind
      { /* the loop's value is that of for_kind */ }
      { $$ = CompileStatementBlock($3); }
  ;

for_kind
  : for_to
  | for_downto
  | for_each
  ;

for_to
  : TK_IDENT '=' expr "To" expr opt_step TK_EOL
      { $$ = CompileForLoop($1, $3); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNext($1, $8, false, $5, $6, $9, $11);
        CheckTerminator($10, kErrorForNotClosed, $8); }
  | TK_IDENT "As" type_name '=' expr "To" expr opt_step TK_EOL
      { CompileDeclaration($1, $3, nullptr); }
      { $$ = CompileForLoop($1, $5); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNext($1, $11, false, $7, $8, $12, $14);
        CheckTerminator($13, kErrorForNotClosed, $11); }
  ;

for_downto
  : TK_IDENT '=' expr "DownTo" expr opt_step TK_EOL
      { $$ = CompileForLoop($1, $3); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNext($1, $8, true, $5, $6, $9, $11);
        CheckTerminator($10, kErrorForNotClosed, $8); }
  | TK_IDENT "As" type_name '=' expr "DownTo" expr opt_step TK_EOL
      { CompileDeclaration($1, $3, nullptr); }
      { $$ = CompileForLoop($1, $5); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNext($1, $11, true, $7, $8, $12, $14);
        CheckTerminator($13, kErrorForNotClosed, $11); }
  ;

for_each
  : "Each" TK_IDENT "In" expr TK_EOL
      { $$ = CompileForEachLoop($2, $4); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNextEachLoop($2, $4, $6, $7, $9);
        CheckTerminator($8, kErrorForNotClosed, $6); }
  | "Each" TK_IDENT "As" type_name "In" expr TK_EOL
      { CompileDeclaration($2, $4, nullptr); }
      { $$ = CompileForEachLoop($2, $6); }
    block next_end opt_ident TK_EOL
      { $$ = CompileNextEachLoop($2, $6, $9, $10, $12);
        CheckTerminator($11, kErrorForNotClosed, $9); }
  ;

next_end
  : "Next"
  | any_end
  ;

opt_step
  : %empty       { $$ = nullptr; }
  | "Step" expr  { $$ = $2; }
  ;

opt_ident
  : %empty  { $$ = nullptr; }
  | TK_IDENT
  ;

while_statement
  : "While" expr TK_EOL
      { $$ = CompileWhileLoop(); }
    block wend_end TK_EOL
      { $$ = CompileWend($2, $4, $5);
        CheckTerminator($6, kErrorWhileNotClosed, $4); }
  ;

wend_end
  : "Wend"
  | any_end
  ;

do_statement
  : "Do" opt_until TK_EOL
      { $$ = CompileDoLoop(); }
    block loop_end opt_until TK_EOL
      { $$ = CompileLoopUntil($2, $4, $5, $7);
        CheckTerminator($6, kErrorDoNotClosed, $4); }
  ;

loop_end
  : "Loop"
  | any_end
  ;

until_clause
  : "Until" expr  { $$ = $2; }
  ;

opt_until
  : %empty  { $$ = nullptr; }
  | until_clause
  ;

any_end
  : "End"             { $$ = nullptr; }
  | "End" "Sub"       { $$ = nullptr; }
  | "End" "Function"  { $$ = nullptr; }
  | "End" "If"        { $$ = nullptr; }
  | "End" "Select"    { $$ = nullptr; }
  | "End" "Try"       { $$ = nullptr; }
  ;

/* ------------------------------------------------------ Exit and Continue */

exit_statement
  : "Exit"                   { $$ = CompileExit(BlockContext::kAnyBlock, nullptr); }
  | "Exit" "Do"              { $$ = CompileExit(BlockContext::kDo, nullptr); }
  | "Exit" "While"           { $$ = CompileExit(BlockContext::kWhile, nullptr); }
  | "Exit" "For" opt_ident   { $$ = CompileExit(BlockContext::kFor, $3); }
  | "Exit" "Function"        { $$ = CompileExit(BlockContext::kFunction, nullptr); }
  | "Exit" "Sub"             { $$ = CompileExit(BlockContext::kSub, nullptr); }
  ;

continue_statement
  : "Continue"                  { $$ = CompileContinue(BlockContext::kAnyBlock, nullptr); }
  | "Continue" "Do"             { $$ = CompileContinue(BlockContext::kDo, nullptr); }
  | "Continue" "While"          { $$ = CompileContinue(BlockContext::kWhile, nullptr); }
  | "Continue" "For" opt_ident  { $$ = CompileContinue(BlockContext::kFor, $3); }
  ;

/* --------------------------------------------------------------------- If */

if_statement
  : block_if
  | inline_if
  ;

block_if
  : "If" expr opt_then TK_EOL
      { $$ = CompileIf(); }
    block opt_elseif_blocks opt_else_block if_end TK_EOL
      { $$ = CompileEndIf($2, $5, $6, $7, $8);
        CheckTerminator($9, kErrorIfNotClosed, $5); }
  ;

inline_if
  : "If" expr opt_then simple_statement opt_inline_else TK_EOL
      { $$ = CompileInlineIf($2, $4, $5); }
  ;

opt_then
  : %empty  { $$ = nullptr; Error(kErrorMissingThen); }
  | "Then"
  ;

opt_inline_else
  : %empty  { $$ = nullptr; }
  | inline_else
  ;

inline_else
  : "Else" simple_statement  { $$ = $2; }
  ;

if_end
  : "End" "If"
  | "End" "Sub"       { $$ = nullptr; }
  | "End" "Function"  { $$ = nullptr; }
  | "End" "Select"    { $$ = nullptr; }
  | "End" "Try"       { $$ = nullptr; }
  | "End"
  ;

else_block
  : "Else" TK_EOL block  { $$ = $3; }
  ;

opt_else_block
  : %empty  { $$ = nullptr; }
  | else_block
  ;

elseif_block
  : "ElseIf" expr opt_then TK_EOL block  { $$ = CompileElseIf($2, $5); }
  ;

opt_elseif_blocks
  : %empty  { $$ = nullptr; }
  | elseif_blocks
  ;

elseif_blocks
  : elseif_block
  | elseif_blocks elseif_block  { $$ = ConcatCode($1, $2); }
  ;

/* ------------------------------------------------------------ Select Case */

select_statement
  : select_head opt_case_blocks select_end TK_EOL
      { $$ = CompileEndSelect($1, $2);
        CheckTerminator($3, kErrorSelectNotClosed, $1); }
  ;

select_end
  : "End" "Select"
  | "End" "If"        { $$ = nullptr; }
  | "End" "Sub"       { $$ = nullptr; }
  | "End" "Function"  { $$ = nullptr; }
  | "End" "Try"       { $$ = nullptr; }
  | "End"
  ;

opt_case_blocks
  : %empty  { $$ = nullptr; }
  | case_blocks
  ;

case_blocks
  : case_block
  | case_blocks case_block  { $$ = ConcatCode($1, $2); }
  ;

case_block
  : "Case" case_tests TK_EOL
      { $$ = CompileDebugEntry(SemCode::New(IRDataType(), nullptr)); }
    block
      { $$ = CompileCase($2, $4, $5); }
  | "Case" "Else" TK_EOL
      { $$ = CompileDebugEntry(SemCode::New(IRDataType(), nullptr)); }
    block
      { $$ = CompileCaseElse($4, $5); }
  | "Else" TK_EOL
      { $$ = CompileDebugEntry(SemCode::New(IRDataType(), nullptr)); }
    block
      { $$ = CompileCaseElse($3, $4); }
  ;

case_tests
  : case_test
  | case_tests ',' case_test  { $$ = CompileOr($1, $3); }
  ;

case_test
  : "Is" '>' expr   { $$ = CompileBinop(PeekSelectExpr(), kOpGreater, $3); }
  | "Is" '<' expr   { $$ = CompileBinop(PeekSelectExpr(), kOpLess, $3); }
  | "Is" '=' expr   { $$ = CompileBinop(PeekSelectExpr(), kOpEqual, $3); }
  | "Is" ">=" expr  { $$ = CompileBinop(PeekSelectExpr(), kOpGreaterEqual, $3); }
  | "Is" "<=" expr  { $$ = CompileBinop(PeekSelectExpr(), kOpLessEqual, $3); }
  | "Is" "<>" expr  { $$ = CompileBinop(PeekSelectExpr(), kOpNotEqual, $3); }
  | expr "To" expr
      { $$ = CompileAnd(CompileBinop(PeekSelectExpr(), kOpGreaterEqual, $1),
                        CompileBinop(PeekSelectExpr(), kOpLessEqual, $3)); }
  | expr            { $$ = CompileBinop(PeekSelectExpr(), kOpEqual, $1); }
  ;

select_head
  : "Select" "Case" expr TK_EOL  { $$ = CompileSelectCase($3); }
  ;

/* -------------------------------------------------------------------- Try */

try_end
  : "End" "Try"
  | "End" "Select"    { $$ = nullptr; }
  | "End" "If"        { $$ = nullptr; }
  | "End" "Sub"       { $$ = nullptr; }
  | "End" "Function"  { $$ = nullptr; }
  | "End"
  ;

try_statement
  : "Try" TK_EOL
      { $$ = CompileTry(); }
    block exception_handlers opt_finally try_end TK_EOL
      { $$ = CompileEndTry($3, ConcatCode($4, $5), $6);
        CheckTerminator($7, kErrorTryNotClosed, $3); }
  ;

/* ------------------------------------------------------ simple statements */

label_statement
  : TK_IDENT ':' TK_EOL  { $$ = CompileLabel($1); }
  ;

goto_statement
  : "GoTo" TK_IDENT  { $$ = CompileGoto($2); }
  ;

return_statement
  : "Return" opt_expr  { $$ = CompileReturn($2); }
  ;

redim_statement
  : "Redim" TK_IDENT paren_args
      { $$ = CompileRedim(CompileLookup($2, nullptr, nullptr,
                                        kRequireFunctionResult,
                                        kErrorUnknownName, false), $3); }
  | "Redim" object_ref '.' TK_IDENT paren_args
      { $$ = CompileRedim(CompileScopeLookup($2, $4, nullptr, nullptr,
                                             kRequireFunctionResult), $5); }
  ;

call_statement
  : TK_IDENT opt_expr_list
      { $$ = CompileLookup($1, $2, nullptr, kProhibitFunctionResult,
                          kErrorUnknownName, false); }
  | object_ref '.' TK_IDENT opt_expr_list
      { $$ = CompileScopeLookup($1, $3, $4, nullptr, kProhibitFunctionResult); }
  ;

raise_statement
  : "Raise" expr  { $$ = CompileRaiseException($2); }
  ;

explicit_call
  : "Call" TK_IDENT opt_expr_list
      { $$ = FilterCallTargets(CompileLookup($2, $3, nullptr, kExplicitCall,
                                             kErrorNone, true)); }
  | "Call" object_ref '.' TK_IDENT opt_expr_list
      { $$ = FilterCallTargets(CompileScopeLookup($2, $4, $5, nullptr,
                                                  kExplicitCall)); }
  ;

raise_event_statement
  : "RaiseEvent" TK_IDENT opt_expr_list
      { $$ = CompileRaiseEvent($2, $3, kProhibitFunctionResult); }
  ;

raise_event_expr
  : "RaiseEvent" TK_IDENT opt_paren_args
      { $$ = CompileRaiseEvent($2, $3, kRequireFunctionResult); }
  ;

simple_statement
  : exit_statement
  | continue_statement
  | goto_statement
  | call_statement         { $$ = FilterTemporaryVariables($1); }
  | return_statement
  | redim_statement        { $$ = FilterTemporaryVariables($1); }
  | raise_statement
  | assignment             { $$ = FilterTemporaryVariables($1); }
  | explicit_call          { $$ = FilterTemporaryVariables($1); }
  | raise_event_statement  { $$ = FilterTemporaryVariables($1); }
  ;

/* ------------------------------------------------- statements and blocks */

statement
  : simple_statement TK_EOL  { $$ = CompileDebugEntry($1); }
  | dim_statement            { $$ = FilterTemporaryVariables($1); }
  | const_statement
  | do_statement
  | for_statement
  | while_statement
  | if_statement
  | select_statement
  | try_statement
  | label_statement          { $$ = CompileDebugEntry($1); }
  | pragma_statement
  | cond_if
  | cond_else
  | cond_elseif
  | cond_endif
  | declare_statement
  ;

block
  : { OpenBlockScope(); }
    opt_statements
      { $$ = CompileStatementBlock($2); }
  ;

opt_statements
  : %empty  { $$ = nullptr; }
  | statements  { CHECK; }
  ;

statements
  : statement  { CHECK; }
  | statements statement  { $$ = ConcatCode($1, $2); }
  | statements error      { $$ = $1; }
  ;

/* ------------------------------------ pragmas, conditional compilation */

pragma_statement
  : "#pragma" TK_IDENT pragma_arg TK_EOL  { $$ = CompilePragma($2, $3); }
  ;

pragma_arg
  : %empty                                    { $$ = nullptr; }
  | "True"                                    { $$ = SemValue::New(gTacOne, nullptr); }
  | "False"                                   { $$ = nullptr; }
  | TK_IDENT ',' TK_STRING ',' TK_STRING      { $$ = nullptr; }
  | TK_IDENT ',' TK_IDENT ',' TK_STRING       { $$ = nullptr; }
  | TK_IDENT
  ;

opt_inline_statement
  : %empty  { $$ = nullptr; }
  | simple_statement
  ;

cond_expr
  : expr
  | expr "Then"  { $$ = CompileConditionalIfStatement($1, $2); }
  ;

cond_if
  : "#if" cond_expr opt_inline_statement TK_EOL
      { $$ = CompileConditionalIf($2, $3); }
  ;

cond_elseif
  : "#ElseIf" expr opt_cond_then TK_EOL
      { $$ = nullptr; CompileConditionalElseIf($2); }
  ;

opt_cond_then
  : %empty  { $$ = nullptr; }
  | "Then"
  ;

cond_else
  : "#else" TK_EOL  { $$ = nullptr; CompileConditionalElse(); }
  ;

cond_endif
  : "#endif" TK_EOL  { $$ = nullptr; CompileConditionalEndIf(); }
  ;

%%
