// An unknown pragma is compile error 87 at its line; the program goes on.
#pragma NoSuchThing           // expect error 2 87
#pragma BackgroundTasks True
#pragma debugging             // expect error 4 87
