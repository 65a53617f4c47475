// Trace texts of the client layer: the Class::Method tags and the labels
// and details its failures are recorded under. Every file of the layer
// refers to these names; the texts reach applications through the detail
// text, so each is kept byte for byte.
#pragma once

namespace qva_text {

// Client object.
inline constexpr char kVerifyMethod[] = "CQVAClientAPI::API_Verify";
inline constexpr char kBuildRequestWhat[] = "cBizQVAClient.MakeRequestValidData";
inline constexpr char kProcessMessageWhat[] = "ProcessMessage";
// The transport steps of ProcessMessage carry this tag; it stays as it is.
inline constexpr char kTransportMethod[] = "CLRVSClientAPI::ProcessMessage";
inline constexpr char kMakeRoamingWhat[] = "roamingMessage.MakeRoamingMessage";
inline constexpr char kTunnelConnectWhat[] = "secureTunnel.Connect";
inline constexpr char kTunnelRequestWhat[] = "secureTunnel.Request";
inline constexpr char kParseRoamingWhat[] = "roamingMessage.ParseRoamingMessage";
inline constexpr char kResultMethod[] = "CQVAClientAPI::ProcessMessage";
inline constexpr char kResultFailWhat[] = "Roaming Message Result Fail";
inline constexpr char kNoItemWhat[] = "";
inline constexpr char kNoItemDetail[] = "item count is zero!!";

// Secure tunnel.
inline constexpr char kTunnelConnectMethod[] = "CSecureTunnel::Connect";
inline constexpr char kSocketConnectWhat[] = "m_pSocketClient->Connect";
// Every exchange that meets an alert reports under the handshake driver's tag.
inline constexpr char kHandshakeMethod[] = "CSecureTunnel::ProcessHandshake";
inline constexpr char kAlertFromServer[] = "Alert Message from Server.";
inline constexpr char kPlainDataMethod[] = "CSecureTunnel::ProcessPlainData";
inline constexpr char kMakePlainDataWhat[] = "m_pSecureManager->MakePlainData";
inline constexpr char kSocketSendWhat[] = "m_pSocketClient->Send fail";
inline constexpr char kParsePlainWhat[] = "m_pSecureManager->ParsePlain";
inline constexpr char kMakeClientHelloWhat[] = "m_pSecureManager->MakeClientHello";
inline constexpr char kProcessHandshakeWhat[] = "m_pSecureManager->ProcessHandshake fail";
inline constexpr char kApplicationDataMethod[] = "CSecureTunnel::ProcessApplicationData";
inline constexpr char kMakeApplicationDataWhat[] = "m_pSecureManager->MakeApplicationData";
inline constexpr char kSocketRequestWhat[] = "m_pSocketClient->Request fail";
inline constexpr char kParseApplicationDataWhat[] = "m_pSecureManager->ParseApplicationData";

// Socket client.
inline constexpr char kSocketConnectMethod[] = "CSocketClient::SocketConnect";
inline constexpr char kResolveWhat[] = "inet_addr fail";
inline constexpr char kResolveDetail[] = "INADDR_NONE";
inline constexpr char kConnectWhat[] = "connect fail";
// host, port, system text, then kConnectWhat.
inline constexpr char kConnectDetailFormat[] = "[%s:%d][%s] - %s";
inline constexpr char kSendMethod[] = "CSocketClient::Send";
inline constexpr char kSendWhat[] = "Send";
inline constexpr char kRecvWhat[] = "Recv";
inline constexpr char kWriteMethod[] = "CSocketClient::Write";
inline constexpr char kSendFailWhat[] = "send fail";
inline constexpr char kRecvMethod[] = "CSocketClient::Recv";
inline constexpr char kRecvFailWhat[] = "recv fail";
inline constexpr char kCallocFailWhat[] = "calloc fail";

}  // namespace qva_text
