-- Tolvane_Register on SQL Server: the tables, keys and relations that
-- Varnock's record objects expect. Run it in the register's own database
-- (created beforehand, with the server's default case-insensitive collation);
-- the batches are separated by GO for sqlcmd and Management Studio.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.
-- The logs (ErrorLog, LogFile) have no key:
-- two entries may be alike in every column.

CREATE TABLE [dbo].[Country] (
  [Country] nvarchar(50) NOT NULL,
  CONSTRAINT [PK_Country] PRIMARY KEY ([Country])
);
GO

CREATE TABLE [dbo].[ErrorLog] (
  [DateCreated] smalldatetime NOT NULL,
  [UserId] nvarchar(50) NOT NULL,
  [ErrorNumber] int NOT NULL,
  [ErrorDescription] nvarchar(255) NOT NULL,
  [Message] nvarchar(255) NULL
);
GO

CREATE TABLE [dbo].[GroupCode] (
  [GroupCode] nvarchar(50) NOT NULL,
  [Group] nvarchar(50) NOT NULL,
  [Comment] ntext NULL,
  CONSTRAINT [PK_GroupCode] PRIMARY KEY ([GroupCode])
);
GO

CREATE TABLE [dbo].[LogFile] (
  [ProgramName] nvarchar(50) NOT NULL,
  [LogDate] smalldatetime NOT NULL,
  [Username] nvarchar(50) NULL,
  [Message] nvarchar(255) NOT NULL
);
GO

CREATE TABLE [dbo].[Parm] (
  [Section] nvarchar(50) NOT NULL,
  [KeyName] nvarchar(50) NOT NULL,
  [Value] nvarchar(255) NULL,
  [Comment] ntext NULL,
  [Locked] bit NOT NULL,
  CONSTRAINT [PK_Parm] PRIMARY KEY ([Section], [KeyName])
);
GO

CREATE TABLE [dbo].[State] (
  [State] nvarchar(50) NOT NULL,
  CONSTRAINT [PK_State] PRIMARY KEY ([State])
);
GO

CREATE TABLE [dbo].[User] (
  [UserName] nvarchar(50) NOT NULL,
  [SiteType] nvarchar(50) NULL,
  [Firstname] nvarchar(50) NULL,
  [Lastname] nvarchar(50) NOT NULL,
  [Country] nvarchar(50) NOT NULL,
  [State] nvarchar(50) NULL,
  [Password] nvarchar(50) NOT NULL,
  [Email] nvarchar(255) NOT NULL,
  [Pagetopic] nvarchar(255) NULL,
  [Bio] nvarchar(255) NULL,
  [Graphic] nvarchar(255) NULL,
  [Link] nvarchar(255) NULL,
  [DateCreated] smalldatetime NULL,
  [Authorized] bit NOT NULL,
  [AuthorisationDate] smalldatetime NULL,
  [AuthorisationMessage] ntext NULL,
  [REMOTE_ADDR] nvarchar(50) NULL,
  CONSTRAINT [PK_User] PRIMARY KEY ([UserName])
);
GO

CREATE TABLE [dbo].[Zone] (
  [Zone] nvarchar(50) NOT NULL,
  [Test] bit NOT NULL,
  CONSTRAINT [PK_Zone] PRIMARY KEY ([Zone])
);
GO

CREATE TABLE [dbo].[GroupMember] (
  [GroupCode] nvarchar(50) NOT NULL,
  [UserName] nvarchar(50) NOT NULL,
  CONSTRAINT [PK_GroupMember] PRIMARY KEY ([GroupCode], [UserName]),
  CONSTRAINT [FK_GroupMember_GroupCode] FOREIGN KEY ([GroupCode])
    REFERENCES [dbo].[GroupCode] ([GroupCode]),
  CONSTRAINT [FK_GroupMember_User] FOREIGN KEY ([UserName])
    REFERENCES [dbo].[User] ([UserName])
);
GO

CREATE TABLE [dbo].[ZoneAddress] (
  [Zone] nvarchar(50) NOT NULL,
  [UserName] nvarchar(50) NOT NULL,
  [Address] int NOT NULL,
  [CreationDate] smalldatetime NOT NULL,
  CONSTRAINT [PK_ZoneAddress] PRIMARY KEY ([Zone], [UserName]),
  CONSTRAINT [FK_ZoneAddress_Zone] FOREIGN KEY ([Zone])
    REFERENCES [dbo].[Zone] ([Zone]),
  CONSTRAINT [FK_ZoneAddress_User] FOREIGN KEY ([UserName])
    REFERENCES [dbo].[User] ([UserName])
);
GO

CREATE TABLE [dbo].[ZonePool] (
  [Zone] nvarchar(50) NOT NULL,
  [Address] int NOT NULL,
  CONSTRAINT [PK_ZonePool] PRIMARY KEY ([Zone], [Address]),
  CONSTRAINT [FK_ZonePool_Zone] FOREIGN KEY ([Zone])
    REFERENCES [dbo].[Zone] ([Zone])
);
GO

CREATE INDEX [IX_GroupMember_UserName] ON [dbo].[GroupMember] ([UserName]);
CREATE INDEX [IX_ZoneAddress_UserName] ON [dbo].[ZoneAddress] ([UserName]);
GO
