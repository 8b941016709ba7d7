// placeholder until the scripted user lands
