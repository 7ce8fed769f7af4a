! Ways of printing many labels: copies, serial numbers, variable fields, stored formats.

[.default]
Copies.Limit=32767
Serialization=yes
Serialization.Count.Limit=99999999
Serialization.Step.Limit=999999999
Serialization.RolloverExpands=no
Serialization.Copies=yes
StaticFields=yes
VariableData=yes
StaticGraphics=yes
StaticGraphics.Restrictions=
Cache.Graphic=yes
Cache.Format=yes
TemplateExport=yes

[Zpl]

[Pplz]
Copies.Limit=9999
Serialization.Count.Limit=9999
Serialization.Copies=no
StaticGraphics.Restrictions=NoVariableGraphics
Cache.Format=no
TemplateExport=no
