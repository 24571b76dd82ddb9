// An event declared again by a subclass is compile error 58.
Class Source
  Event Changed()
End Class
Class Relay
  Inherits Source
  Event Changed()
End Class
// expect error 7 58
