// A false directive skips its lines entirely, garbage included.
#if TargetPowerPC Then
this is not a program at all ( ( (
#endif
#if TargetLittleEndian Then
z = = 3             // expect error 6 1
#endif
